#include "maintenance/ClearAndArchive.h"

#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "maintenance/LogRewrite.h"
#include "modemlog/LogFile.h"
#include "modemlog/LogLine.h"
#include "modemlog/NewLog.h"
#include "values/CodePage.h"

namespace qel {

ArchiveTry SaveArchive(const std::string& path, const std::string& text, const std::string& log,
                       const FileStamp& read) {
  std::string failure = ReasonOfFailure([&] {
    const bool ownFile = IsSameFile(path, log);
    WriteLog(path, text + NewLine, ownFile ? std::optional(read) : std::nullopt);
  });
  if (const std::string named = PathText(path) + ": "; failure.starts_with(named))
    failure.erase(0, named.size());  // which the user has just given
  return {log, read, failure};
}

std::string DoubtAboutClearing(const ArchiveTry& last) {
  if (last.Log != logFile.CurrentLogPath) return "";
  if (!last.Failure.empty()) return "The log was not saved as an archive:\n" + last.Failure;
  bool grown = false;
  IgnoreErrors([&] { grown = StampOf(logFile.CurrentLogPath) != last.Text; });
  return grown ? "The log has changed since the text that you saved as an archive was read." : "";
}

void ClearLog(const std::optional<FileStamp>& seen) {
  WriteLog(logFile.CurrentLogPath, NewLogEntry(), seen ? *seen : StampOf(logFile.CurrentLogPath));
}

}  // namespace qel
