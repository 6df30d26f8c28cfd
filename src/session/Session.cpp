#include "session/Session.h"

#include "analysis/Analyse.h"
#include "platform/Files.h"
#include "settings/UserParameters.h"

namespace qel {

void Session::LoadSettings() {
  settings = {};
  windowSettings = {};
  ReadUserParameters(store, settings, windowSettings);
  FillMissingSettings(settings, windowSettings);
}

void Session::StoreSettings() { WriteUserParameters(store, settings, windowSettings); }

void Session::SetCurrentLog(const std::string& folder, const std::string& file) {
  logFile.CurrentLogFile = file;
  logFile.CurrentLogDir = folder;
  logFile.CurrentLogPath = folder + file;
  // What was found in one file says nothing of the next.
  findings.LogExists = findings.LogCorrupt = findings.LogTooBig = findings.LogEmpty = findings.LogInvalid =
      findings.TimesForDates = false;
}

void Session::SetCurrentLog(const std::string& path) { SetCurrentLog(FolderPart(path), FileNamePart(path)); }

void Session::Examine(LogHealth health, EntryCount count) {
  qel::Examine(logFile, settings.MaxLogSize, health, count, findings);
}

void Session::ProcessLog() {
  Pricing pricing(settings, period);
  qel::ProcessLog(pricing, logFile, findings, analysis);
}

}  // namespace qel
