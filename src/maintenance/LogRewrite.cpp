#include "maintenance/LogRewrite.h"

#include "core/ProgramState.h"
#include "core/Surroundings.h"
#include "maintenance/LinePass.h"
#include "maintenance/LogSwap.h"
#include "modemlog/LineClassifier.h"
#include "modemlog/LogExamination.h"
#include "modemlog/LogLine.h"
#include "platform/FileLock.h"
#include "settings/Settings.h"
#include "values/CheckedInteger.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

// Where a dialled number begins, counted from 0: behind date, time and the driver's words.
constexpr std::size_t NumberPlace = 25;

// What sets the tools apart.
struct Tool {
  const char* WorkingName;
  const char* SafetyName;
  std::string Doing;  // "Purging"
  std::string Finished;
  std::string FailureTitle;
  std::string FailureLine;
};

class Progress {
 public:
  explicit Progress(std::string doing) : doing(std::move(doing)) {}

  void CountLine(Int16 lines) {
    if (findings.LogEntries <= 0) return;
    const Int16 percent(static_cast<double>(lines) / static_cast<double>(findings.LogEntries) * 100);
    if (percent == told) return;
    told = percent;
    CurrentDisplay().StatusText("Please Wait ....." + doing + "  " + NumberText(percent) + "%");
    if (percent < 101) CurrentDisplay().Progress(percent);
    CurrentHost().Yield();
  }

 private:
  const std::string doing;
  std::optional<Int16> told;
};

void TellFailure(const Tool& tool) {
  MsgBox({tool.FailureLine + "\n\n"
                             "Please try again later after shutting down and\n"
                             "re-starting your computer.\n"
                             "\n"
                             "Note that if you are currently connected and\n"
                             "on-line then you should NOT be using QEL now.",
          tool.FailureTitle});
}

void RewriteLog(const Tool& tool, const LineRule& rule) {
  RefuseOwnFile({tool.WorkingName, tool.SafetyName});
  const FileLock lock(WorkingPath(LockName));
  LogSwap swap(logFile.CurrentLogPath);
  const WorkingFile working(tool.WorkingName);
  CloseAllFiles();
  Progress progress(tool.Doing);
  RewriteLines(logFile.CurrentLogPath, working.Path, rule,
               [&progress](Int16 lines, std::size_t) { progress.CountLine(lines); });
  swap.PutInPlace(working.Path, WorkingPath(tool.SafetyName));
}

void Rewrite(const Tool& tool, const LineRule& rule) {
  CurrentDisplay().ShowProgress(true);
  if (const std::string reason = ReasonOfFailure([&] { RewriteLog(tool, rule); }); !reason.empty()) {
    CurrentDisplay().WorkFailed(reason);
    TellFailure(tool);
  }
  CurrentDisplay().ShowProgress(false);
  CurrentDisplay().StatusText(tool.Finished);
  CurrentHost().SetMousePointer(MousePointer::Default);
}

}  // namespace

void DoPurge(Date from, Date to) {
  SetTrace("frmPurge", "DoPurge");
  const Tool purge{PurgedName,     SafetyCopyName,
                   "Purging",      "Finished Purging Records!",
                   "Purge Failed", "QEL was unable to purge your modem log file!"};
  Rewrite(purge, [from, to](std::string_view line) -> std::optional<std::string> {
    const Date date = GetLineDate(line);
    if (date == 0 || (date >= from && date <= to)) return std::nullopt;
    return std::string(line);
  });
}

void DoOptimize() {
  SetTrace("QELOptimize", "DoOptimize");
  const Tool optimize{OptimizedName,         logFile.ArchiveOpen ? ArchiveSafetyCopyName : SafetyCopyName,
                      "Optimizing",          "Finished Optimizing Modem Log File!",
                      "Optimization Failed", "QEL was unable to optimize your modem log file!"};
  const LineClassifier classifier(settings);
  Rewrite(optimize, [&classifier](std::string_view line) -> std::optional<std::string> {
    const unsigned classes = classifier.ClassesOf(line);
    if (line.empty() || classes == NoClass) return std::nullopt;
    std::string capitals = UpperCase(line);
    const bool hasNumber = capitals.find_first_of("0123456789", NumberPlace) != std::string::npos;
    if (classes & DialLine && !hasNumber) return std::nullopt;
    return capitals;
  });
}

}  // namespace qel
