// What one running program holds.
#pragma once

#include "analysis/AnalysisResult.h"
#include "analysis/ReportPeriod.h"
#include "core/ProgramState.h"
#include "modemlog/LogFile.h"
#include "registry/RegistryStore.h"
#include "settings/Settings.h"
#include "wizard/ModemSetup.h"

namespace qel {

struct Session {
  Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Places& places = qel::places;
  RegistryStore& store = Registry;
  Settings& settings = qel::settings;
  WindowSettings& windowSettings = qel::windowSettings;
  LogFile& logFile = qel::logFile;
  LogFindings& findings = qel::findings;
  Period& period = qel::period;
  AnalysisResult& analysis = qel::analysis;
  ModemSetup modems{store, settings, places};

  bool TipShown = false;         // the tip of the day has been offered
  bool LogMissingShown = false;  // the user knows that there is no log

  // From the store, with the default of what is missing there; and to it, as UserParameters.h tells.
  void LoadSettings();
  void StoreSettings();
};

}  // namespace qel
