#include "maintenance/LinePass.h"

#include <iostream>
#include <limits>
#include <new>

#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "maintenance/LogSwap.h"
#include "platform/Files.h"
#include "values/CodePage.h"

namespace qel {

WorkingFile::WorkingFile(const char* name) : Path(WorkingPath(name)) {
  if (PathExists(Path)) RemoveFile(Path);
}

WorkingFile::~WorkingFile() {
  if (!kept) IgnoreErrors([this] { RemoveFile(Path); });
}

void RewriteLines(const std::string& from, const std::string& to, const LineRule& rule,
                  const LineCounted& counted) {
  LineReader lines(from);
  FileWriter result(to, WorkingFileMode);
  Int16 count;
  for (std::string_view line; lines.Next(line);) {
    if (count == std::numeric_limits<std::int16_t>::max())
      throw LogFailure(Overflow, "the log has more than 32,767 lines");
    ++count;
    if (const auto kept = rule(line)) result.Write(*kept + NewLine);
    counted(count, line.size());
  }
  lines.Close();
  result.Close();
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
