// What one running program holds.
#pragma once

#include "analysis/AnalysisResult.h"
#include "analysis/Period.h"
#include "core/Places.h"
#include "maintenance/LogRewrite.h"
#include "modemlog/LogExamination.h"
#include "registry/RegistryStore.h"
#include "reports/ReportOf.h"
#include "settings/Settings.h"
#include "wizard/ModemSetup.h"

namespace qel {

struct Session {
  Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Places places;
  RegistryStore store;  // of the settings
  Settings settings;
  WindowSettings windowSettings;
  LogFile logFile;  // the log in hand
  LogFindings findings;
  Period period;
  AnalysisResult analysis;
  ModemSetup modems{store, settings, places};

  bool TipShown = false;         // the tip of the day has been offered
  bool LogMissingShown = false;  // the user knows that there is no log

  // From the store, with the default of what is missing there; and to it, as UserParameters.h tells.
  void LoadSettings();
  void StoreSettings();

  // Makes a file the log in hand, of whose health nothing is known yet: folder (with a separator at its end)
  // and name, or a whole path.
  void SetCurrentLog(const std::string& folder, const std::string& file);
  void SetCurrentLog(const std::string& path);
  // Finds out what there is to know of it.
  void Examine(LogHealth health, EntryCount count = EntryCount::Wanted);
  // For the tools that rewrite it.
  LogInHand InHand() const { return {logFile.CurrentLogPath, places.AppPath, findings.LogEntries}; }

  // The analysis of the log in hand, with the report shown behind it.
  void ProcessLog();
  ReportOf Reported() { return {analysis, settings, period}; }
};

}  // namespace qel
