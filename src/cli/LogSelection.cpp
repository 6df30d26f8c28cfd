#include "cli/LogSelection.h"

#include <cerrno>

#include "cli/CommandLineHost.h"
#include "modemlog/LogMessages.h"
#include "platform/Files.h"
#include "values/CodePage.h"

namespace qel {

namespace {

bool Refuse(const LogFile& logFile, const std::string& why) {
  Complain(ShownPath(logFile.CurrentLogPath) + ": " + why);
  return false;
}

}  // namespace

bool CanBeRead(const LogFile& logFile) {
  if (IsStream(logFile.CurrentLogPath))
    return Refuse(logFile, "cannot read the log: it must be a file, no pipe or device");
  try {
    LineReader file(logFile.CurrentLogPath);
    file.Close();
    return true;
  } catch (const RunTimeError& error) {
    const bool missingDefault = !logFile.ArchiveOpen && error.SystemError() == ENOENT;
    return Refuse(logFile, missingDefault ? "there is no modem log here; name one with --log FILE"
                                          : "cannot read the log: " + ReasonOf(error));
  }
}

void NameLog(Session& session, const std::optional<std::string>& named) {
  if (named)
    session.SetCurrentLog(*named);
  else
    session.SetCurrentLog(session.settings.ModemLogDir, session.settings.ModemLogFile);
  session.logFile.ArchiveOpen = named.has_value();
}

bool SelectLog(Session& session, const std::optional<std::string>& named, EntryCount count) {
  const LogFile& logFile = session.logFile;
  const LogFindings& findings = session.findings;
  NameLog(session, named);
  if (!CanBeRead(logFile)) return false;
  session.Examine(logFile.ArchiveOpen ? LogHealth::Sound : LogHealth::Unknown, count);
  if (findings.LogCorrupt)
    return Refuse(logFile, "the log is corrupt: it holds a byte that no text log can hold");
  if (findings.LogEmpty) return Refuse(logFile, "the log is empty");
  if (findings.TimesForDates) return Refuse(logFile, WhyTimesForDates);
  if (findings.LogInvalid)
    return Refuse(logFile, "this is no modem log: its first or last entry has no date");
  if (findings.LogTooBig && !logFile.ArchiveOpen) ShowLogTooBig();
  return true;
}

bool SelectLogToFollow(Session& session, const std::optional<std::string>& named) {
  const LogFindings& findings = session.findings;
  NameLog(session, named);
  if (!CanBeRead(session.logFile)) return false;
  session.Examine(LogHealth::Sound, EntryCount::NotWanted);
  if (findings.TimesForDates) return Refuse(session.logFile, WhyTimesForDates);
  if (!findings.LogEmpty && findings.FirstEntryDate == 0)
    return Refuse(session.logFile, "this is no modem log: no entry has a date");
  return true;
}

}  // namespace qel
