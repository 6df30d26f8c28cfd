// A fixture in which the whole program is as a fresh process has it: United States, an empty store in memory,
// all settings at their defaults, the clock stopped.
#pragma once

#include <gtest/gtest.h>
#include <string>

#include "analysis/Analyse.h"
#include "analysis/ReportPeriod.h"
#include "analysis/ResetProgram.h"
#include "core/ProgramState.h"
#include "modemlog/LogExamination.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "registry/RegistryStore.h"
#include "registry/StoredRegion.h"
#include "settings/UserParameters.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace qel {

class FreshProgram : public ::testing::Test {
 protected:
  FreshProgram() {
    Registry.Reset();
    ResetProgram();
    // No store and no locale speak here, so the regional values are those of the United States.
    for (const char* name : {"LC_ALL", "LANG", "LC_TIME", "LC_NUMERIC", "LC_MONETARY"}) unsetenv(name);
    Region = GetCurrencySymbolInfo(Registry);
    ReadUserParameters(Registry, settings, windowSettings);
    FillMissingSettings(settings, windowSettings);
    StopClockAt(DateSerial(1999, 1, 15) + TimeSerial(12, 0, 0));
  }
  ~FreshProgram() override { ResetClock(); }

  // Makes `text` the current log, an archive as the user would open it, and gathers its statistics.
  void OpenLog(const std::string& text) {
    logFile.CurrentLogDir = folder.Path() + "/";
    logFile.CurrentLogFile = "test.log";
    logFile.CurrentLogPath = logFile.CurrentLogDir + logFile.CurrentLogFile;
    FileWriter file(logFile.CurrentLogPath);
    file.Write(text);
    file.Close();
    findings.LogExists = logFile.ArchiveOpen = true;
    GetLogStats(false);
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

  TemporaryFolder folder;
  ScriptedHost host;
};

}  // namespace qel
