#include "FuzzedProgram.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "analysis/PeriodFields.h"
#include "core/ShownDates.h"
#include "platform/Clock.h"
#include "platform/Host.h"
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
  Region = GetCurrencySymbolInfo(Session.store);
  StopClockAt(DateSerial(1999, 1, 15));
  Session.places.AppPath = "/app";
  SetDefaults();
}

void FuzzedProgram::OpenLog(std::string_view log) {
  Disk.Mend();
  Memory.Empty();
  Memory.PutFolder("/app");
  Memory.Put("/app/log.txt", log);
  Session.SetCurrentLog("/app/", "log.txt");
}

void FuzzedProgram::SetDefaults() {
  Settings& settings = Session.settings;
  settings = {};
  Session.windowSettings = {};
  FillMissingSettings(settings, Session.windowSettings);
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

bool FuzzedProgram::AnalyseAll(int firstDay, int lastDay) {
  Session.Examine(LogHealth::Unknown);
  const LogFindings& findings = Session.findings;
  if (findings.LogEmpty || findings.LogInvalid || findings.LogCorrupt) return false;
  PeriodFields fields(Session.period, Session.logFile, findings);
  fields.SetStarting(format_date(findings.FirstEntryDate + firstDay));
  fields.SetEnding(format_date(findings.LastEntryDate - lastDay));
  if (!fields.checkProcess()) return false;
  Session.ProcessLog();
  return !findings.LogCorrupt;
}

std::string FuzzedProgram::ReportIn(std::size_t form) {
  const ReportOf report = Session.Reported();
  const LogFile& log = Session.logFile;
  const LogFindings& findings = Session.findings;
  switch (form % ReportForms) {
    case 0:
      return DisplaySummaryReport(report).ReportText;
    case 1:
      return DisplayDetailReport(report).ReportText;
    case 2:
      return ExportSummary(report, ExportFormat::Csv);
    case 3:
      return ExportDetails(report, ExportFormat::Csv);
    case 4:
      return ExportSummary(report, ExportFormat::Json);
    case 5:
      return ExportDetails(report, ExportFormat::Json) + ExportStatistics(log, findings, ExportFormat::Json);
    case 6:
      return ExportStatistics(log, findings, ExportFormat::Csv) + StatisticsPage(log, findings);
    case 7:
      return SummaryPage(report, log);
    case 8:
      return DetailsPage(report, log);
  }
  std::string text;
  for (const auto& line : SummaryDifferences(report)) text += line;
  return text;
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
