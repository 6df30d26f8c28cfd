#include "cli/LogSelection.h"

#include <cerrno>

#include "cli/CommandLineHost.h"
#include "modemlog/LogExamination.h"
#include "modemlog/LogMessages.h"
#include "platform/Files.h"
#include "settings/Settings.h"

namespace qel {

namespace {

bool Refuse(const std::string& why) {
  Complain(ShownPath(logFile.CurrentLogPath) + ": " + why);
  return false;
}

bool CanBeRead() {
  if (IsStream(logFile.CurrentLogPath))
    return Refuse("cannot read the log: it must be a file, no pipe or device");
  try {
    LineReader file(logFile.CurrentLogPath);
    file.Close();
    return true;
  } catch (const RunTimeError& error) {
    const bool missingDefault = !logFile.ArchiveOpen && error.SystemError() == ENOENT;
    return Refuse(missingDefault ? "there is no modem log here; name one with --log FILE"
                                 : "cannot read the log: " + ReasonOf(error));
  }
}

}  // namespace

bool SelectLog(const std::optional<std::string>& named) {
  if (named)
    SetCurrentLog(*named);
  else
    SetCurrentLog(settings.ModemLogDir, settings.ModemLogFile);
  logFile.ArchiveOpen = named.has_value();
  if (!CanBeRead()) return false;
  Examine(logFile.ArchiveOpen ? LogHealth::Sound : LogHealth::Unknown);
  if (findings.LogCorrupt) return Refuse("the log is corrupt: it holds a byte that no text log can hold");
  if (findings.LogEmpty) return Refuse("the log is empty");
  if (findings.LogInvalid) return Refuse("this is no modem log: its first or last entry has no date");
  if (findings.LogTooBig && !logFile.ArchiveOpen) ShowLogTooBig();
  return true;
}

}  // namespace qel
