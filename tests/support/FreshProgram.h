// A fixture in which the whole program is as a fresh process has it: United States, an empty store in memory,
// all settings at their defaults, the clock stopped.
#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "platform/Clock.h"
#include "registry/StoredRegion.h"
#include "session/Session.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace qel {

class FreshProgram : public ::testing::Test {
 protected:
  FreshProgram() {
    // No store and no locale speak here, so the regional values are those of the United States.
    for (const char* name : {"LC_ALL", "LANG", "LC_TIME", "LC_NUMERIC", "LC_MONETARY"}) unsetenv(name);
    Region = GetCurrencySymbolInfo(store);
    session->LoadSettings();
    StopClockAt(DateSerial(1999, 1, 15) + TimeSerial(12, 0, 0));
  }
  ~FreshProgram() override { ResetClock(); }

  // Makes `text` the current log, an archive as the user would open it, and gathers its statistics.
  void OpenLog(const std::string& text) {
    folder.Put("test.log", text);
    session->SetCurrentLog(folder.Path("test.log"));
    logFile.ArchiveOpen = true;
    session->Examine(LogHealth::Sound);
  }

  void SetPeriod(Date start, Date end) {
    period.PeriodStart = start;
    period.PeriodEnd = end;
    period.PeriodDays = Int16(DaysBetween(start, end)) + 1;
  }

  // Adds a service to the settings; the record stays valid until the next one.
  ServiceRecord& AddService(const std::string& name, const std::string& number,
                            const std::string& altNumber) {
    ServiceRecord& service = settings.Services[settings.UsedServices];
    ++settings.UsedServices;
    service.ServiceName = name;
    service.ServiceNumber = number;
    service.ServiceAltNumber = altNumber;
    return service;
  }

  std::optional<Session> session{std::in_place};
  Places& places = session->places;
  RegistryStore& store = session->store;
  Settings& settings = session->settings;
  WindowSettings& windowSettings = session->windowSettings;
  LogFile& logFile = session->logFile;
  LogFindings& findings = session->findings;
  Period& period = session->period;
  AnalysisResult& analysis = session->analysis;

  TemporaryFolder folder;
  ScriptedHost host;
};

}  // namespace qel
