#include "maintenance/ClearAndArchive.h"

#include "core/ErrorHandler.h"
#include "maintenance/LogRewrite.h"
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

std::string DoubtAboutClearing(const std::string& log, const ArchiveTry& last) {
  if (last.Log != log) return "";
  if (!last.Failure.empty()) return "The log was not saved as an archive:\n" + last.Failure;
  bool grown = false;
  IgnoreErrors([&] { grown = StampOf(log) != last.Text; });
  return grown ? "The log has changed since the text that you saved as an archive was read." : "";
}

void ClearLog(const std::string& log, const std::optional<FileStamp>& seen) {
  WriteLog(log, NewLogEntry(), seen ? *seen : StampOf(log));
}

}  // namespace qel
