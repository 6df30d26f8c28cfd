#include "maintenance/LogRewrite.h"

#include <iostream>
#include <limits>
#include <new>
#include <utility>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "platform/Files.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

void RewriteLog(const LogTool& tool, const LogInHand& inHand, const LineRule& rule) {
  inHand.RefuseOwnFile({tool.WorkingName, tool.SafetyCopyName});
  LogRewrite rewrite(inHand, tool.WorkingName, tool.SafetyCopyName);
  CloseAllFiles();
  PercentDone done(CurrentDisplay(), std::string("Please Wait .....") + tool.Doing + "  ");
  rewrite.WriteLines(inHand.Log, rule, [&](Int16 lines, std::int64_t) {
    if (inHand.Entries > 0) done.Tell(lines, static_cast<double>(inHand.Entries));
  });
  rewrite.PutInPlace();
}

void TellFailure(const LogTool& tool) {
  MsgBox({std::string(tool.FailureText) + "\n\n"
                                          "Please try again later after shutting down and\n"
                                          "re-starting your computer.\n"
                                          "\n"
                                          "Note that if you are currently connected and\n"
                                          "on-line then you should NOT be using QEL now.",
          tool.FailureTitle});
}

}  // namespace

void LogInHand::RefuseOwnFile(std::initializer_list<const char*> names) const {
  for (const char* name : names)
    if (IsSameFile(Log, WorkingPath(name)))
      throw LogFailure(PermissionDenied, "the log is one of QEL's own working files");
}

WorkingFile::WorkingFile(std::string path) : Path(std::move(path)) {
  if (PathExists(Path)) RemoveFile(Path);
}

WorkingFile::~WorkingFile() {
  if (!kept) IgnoreErrors([this] { RemoveFile(Path); });
}

void PercentDone::Tell(double part, double whole) {
  const Int16 percent(whole > 0 ? part / whole * 100 : 0);
  if (percent == told) return;
  told = percent;
  display.StatusText(doing + NumberText(percent) + "%");
  if (percent < 101) display.Progress(percent);
  CurrentHost().Yield();
}

LogRewrite::LogRewrite(const LogInHand& inHand, const char* workingName, const char* safetyCopyName)
    : safetyCopy(inHand.WorkingPath(safetyCopyName)),
      lock(inHand.WorkingPath(LockName)),
      swap(inHand.Log),
      working(inHand.WorkingPath(workingName)) {}

void LogRewrite::WriteLines(const std::string& from, const LineRule& rule, const LineCounted& counted) {
  LineReader lines(from);
  FileWriter result(working.Path, WorkingFile::Mode);
  Int16 count;
  std::int64_t bytes = 0;
  for (std::string_view line; lines.Next(line);) {
    if (count == std::numeric_limits<std::int16_t>::max())
      throw LogFailure(Overflow, "the log has more than 32,767 lines");
    ++count;
    bytes += static_cast<std::int64_t>(line.size()) + 2;
    if (const auto kept = rule(line)) result.Write(*kept + NewLine);
    counted(count, bytes);
  }
  lines.Close();
  result.Close();
}

void LogRewrite::PutInPlace() { swap.PutInPlace(working.Path, safetyCopy); }

void RunTool(const LogTool& tool, const LogInHand& inHand, const LineRule& rule) {
  CurrentDisplay().ShowProgress(true);
  if (const std::string reason = ReasonOfFailure([&] { RewriteLog(tool, inHand, rule); }); !reason.empty()) {
    CurrentDisplay().WorkFailed(reason);
    TellFailure(tool);
  }
  CurrentDisplay().ShowProgress(false);
  CurrentDisplay().StatusText(tool.Finished);
  CurrentHost().SetMousePointer(MousePointer::Default);
}

std::string ReasonOfFailure(const std::function<void()>& work) {
  std::string reason;
  try {
    work();
    return "";
  } catch (const RunTimeError& error) {
    reason = WhyItFailed(error);
  } catch (const std::bad_alloc&) {
    reason = ErrorDescription(OutOfMemory);
  }
  std::cerr << "qel: " << ToUtf8(reason) << '\n';
  return reason;
}

}  // namespace qel
