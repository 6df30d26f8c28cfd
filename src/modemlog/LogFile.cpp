#include "modemlog/LogFile.h"

#include "platform/Files.h"

namespace qel {

LogFile logFile;
LogFindings findings;

void SetCurrentLog(const std::string& folder, const std::string& file) {
  logFile.CurrentLogFile = file;
  logFile.CurrentLogDir = folder;
  logFile.CurrentLogPath = folder + file;
  // What was found in one file says nothing of the next.
  findings.LogExists = findings.LogCorrupt = findings.LogTooBig = findings.LogEmpty = findings.LogInvalid =
      false;
}

void SetCurrentLog(const std::string& path) { SetCurrentLog(FolderPart(path), FileNamePart(path)); }

}  // namespace qel
