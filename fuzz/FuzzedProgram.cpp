#include "FuzzedProgram.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "analysis/Analyse.h"
#include "analysis/PeriodFields.h"
#include "core/Places.h"
#include "core/ShownDates.h"
#include "modemlog/LogExamination.h"
#include "platform/Clock.h"
#include "platform/Host.h"
#include "registry/RegistryStore.h"
#include "registry/StoredRegion.h"
#include "reports/DetailReport.h"
#include "reports/HtmlReport.h"
#include "reports/ReportExport.h"
#include "reports/SummaryDifference.h"
#include "reports/SummaryReport.h"
#include "settings/UserParameters.h"

namespace qel {

FuzzedProgram::FuzzedProgram() {
  std::cerr.rdbuf(nullptr);
  Region = GetCurrencySymbolInfo(store);
  StopClockAt(DateSerial(1999, 1, 15));
  places.AppPath = "/app";
  SetDefaults();
}

void FuzzedProgram::OpenLog(std::string_view log) {
  Disk.Mend();
  Memory.Empty();
  Memory.PutFolder("/app");
  Memory.Put("/app/log.txt", log);
  session->SetCurrentLog("/app/", "log.txt");
}

void SetDefaults() {
  settings = {};
  windowSettings = {};
  FillMissingSettings(settings, windowSettings);
  settings.Services.Make(settings.MaxServices);
  ServiceRecord& service = settings.Services[0];
  service.ServiceName = "Alpha";
  service.ServiceNumber = "5551234";
  service.DialOption = 2;
  service.UsedTariffs = 1;
  service.Tariffs[0].AppliesDays = "Mon - Fri";
  service.Tariffs[0].AppliesTimeEnd = TimeSerial(23, 59, 0);
  service.Tariffs[0].Unit = "Per Unit";
  service.Tariffs[0].UnitMins = 1;
  service.Tariffs[0].PerMinuteRate = 0.05;
  settings.UsedServices = 1;
}

bool AnalyseAll(int firstDay, int lastDay) {
  session->Examine(LogHealth::Unknown);
  if (findings.LogEmpty || findings.LogInvalid || findings.LogCorrupt) return false;
  PeriodFields fields(period, logFile, findings);
  fields.SetStarting(format_date(findings.FirstEntryDate + firstDay));
  fields.SetEnding(format_date(findings.LastEntryDate - lastDay));
  if (!fields.checkProcess()) return false;
  Pricing pricing(settings, period);
  ProcessLog(pricing, logFile, findings, analysis);
  return !findings.LogCorrupt;
}

std::string ReportIn(std::size_t form) {
  static constexpr std::string (*Forms[])() = {
      [] { return DisplaySummaryReport(session->Reported()).ReportText; },
      [] { return DisplayDetailReport(session->Reported()).ReportText; },
      [] { return ExportSummary(session->Reported(), ExportFormat::Csv); },
      [] { return ExportDetails(session->Reported(), ExportFormat::Csv); },
      [] { return ExportSummary(session->Reported(), ExportFormat::Json); },
      [] {
        return ExportDetails(session->Reported(), ExportFormat::Json) +
               ExportStatistics(logFile, findings, ExportFormat::Json);
      },
      [] {
        return ExportStatistics(logFile, findings, ExportFormat::Csv) + StatisticsPage(logFile, findings);
      },
      [] { return SummaryPage(session->Reported(), logFile); },
      [] { return DetailsPage(session->Reported(), logFile); },
      [] {
        std::string text;
        for (const auto& line : SummaryDifferences(session->Reported())) text += line;
        return text;
      },
  };
  static_assert(std::size(Forms) == ReportForms);
  return Forms[form % ReportForms]();
}

void Run(const std::function<void()>& work) {
  try {
    work();
  } catch (const ProgramEnd&) {
  } catch (const RunTimeError&) {
  }
}

unsigned Choices::Below(unsigned limit) {
  if (bytes.empty()) return 0;
  const unsigned byte = static_cast<unsigned char>(bytes.front());
  bytes.remove_prefix(1);
  return byte % limit;
}

void Check(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", rule);
  std::abort();
}

}  // namespace qel

// Many small inputs: who asked for a piece of memory is looked up when a run of its own repeats the finding.
extern "C" const char* __asan_default_options() { return "malloc_context_size=2:quarantine_size_mb=16"; }
