// The pieces of a report in one process: the statistics pass, the analysis, and both reports.
// Logs come from makelog: 32,000 connections, few chatter lines for the reports, 300 a call for the passes.

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "makelog/WriteLog.h"
#include "platform/Files.h"
#include "registry/StoredRegion.h"
#include "reports/DetailReport.h"
#include "reports/SummaryReport.h"
#include "session/Session.h"
#include "settings/UserParameters.h"

namespace qel {
namespace {

constexpr int ServiceCount = 80;  // so that no total of bytes leaves 32 bits

std::string NumberOf(int service) { return std::to_string(5550100 + service); }

// A service with all ten tariffs, each an hour of the working day but the last, which takes what is left.
ServiceRecord BusyService(int number) {
  ServiceRecord service;
  service.ServiceName = "Busy Service " + std::to_string(number);
  service.ServiceNumber = NumberOf(number);
  service.DialOption = 2;
  service.UsedTariffs = MaxTariffs;
  for (int i = 0; i < MaxTariffs; ++i) {
    TariffRecord& tariff = service.Tariffs[i];
    const bool last = i + 1 == MaxTariffs;
    tariff.Description = "Tariff " + std::to_string(i + 1);
    tariff.AppliesDays = last ? "Everyday" : "Mon - Fri";
    tariff.AppliesTimeStart = last ? 0 : TimeSerial(8 + i, 0, 0);
    tariff.AppliesTimeEnd = last ? TimeSerial(23, 59, 0) : TimeSerial(8 + i, 59, 0);
    tariff.DialRate = 0.05;
    tariff.PerMinuteRate = 0.01 * (i + 1);
    tariff.Unit = "Per Minute";
  }
  service.ServiceOption = 1;
  service.ServiceRate = 1.5;
  return service;
}

// A log of `calls` calls with `chatter` lines each, opened for analysis over its whole length.
class OpenedLog {
 public:
  OpenedLog(int calls, int chatter) : path(std::filesystem::temp_directory_path() / "qel-bench.log") {
    LogOptions options;
    options.CallsPerThousandDays = 40000;
    options.Days = calls / 40;
    options.Chatter = chatter;
    options.Numbers.clear();
    for (int i = 0; i < ServiceCount; ++i) options.Numbers.push_back(NumberOf(i));
    std::ofstream file(path, std::ios::binary);
    WriteLog(options, file);
    file.close();
    Region = GetCurrencySymbolInfo(Session.store);
    Settings& settings = Session.settings;
    settings.MaxServices = 100;
    settings.MaxConnections = 32767;
    settings.Services.Make(settings.MaxServices);
    FillMissingSettings(settings, Session.windowSettings);
    for (settings.UsedServices = 0; settings.UsedServices < ServiceCount; ++settings.UsedServices)
      settings.Services[settings.UsedServices] = BusyService(settings.UsedServices);
    Session.SetCurrentLog(path.string());
    Session.logFile.ArchiveOpen = true;
    Session.Examine(LogHealth::Sound);
    const LogFindings& findings = Session.findings;
    Session.period = {findings.FirstEntryDate, findings.LastEntryDate,
                      Int16(DaysBetween(findings.FirstEntryDate, findings.LastEntryDate) + 1)};
  }
  ~OpenedLog() { std::filesystem::remove(path); }
  OpenedLog(const OpenedLog&) = delete;
  OpenedLog& operator=(const OpenedLog&) = delete;

  qel::Session Session;

 private:
  std::filesystem::path path;
};

void CountBytes(benchmark::State& state, const Session& session) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          FileLength(session.logFile.CurrentLogPath));
}

void CountConnections(benchmark::State& state, const Session& session) {
  if (session.analysis.ConnectionCount == 0) throw std::runtime_error("nothing was analysed");
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) *
                          int{session.analysis.ConnectionCount});
}

void Statistics(benchmark::State& state) {
  OpenedLog log(4000, 300);
  for (auto _ : state) log.Session.Examine(LogHealth::Sound);
  CountBytes(state, log.Session);
}
BENCHMARK(Statistics)->Unit(benchmark::kMillisecond);

void Analysis(benchmark::State& state) {
  OpenedLog log(4000, 300);
  for (auto _ : state) log.Session.ProcessLog();
  CountBytes(state, log.Session);
  CountConnections(state, log.Session);
}
BENCHMARK(Analysis)->Unit(benchmark::kMillisecond);

template <ReportDocument (*Build)(const ReportOf&)>
void Report(benchmark::State& state) {
  OpenedLog log(32000, 3);
  log.Session.ProcessLog();
  for (auto _ : state) benchmark::DoNotOptimize(Build(log.Session.Reported()));
  CountConnections(state, log.Session);
}
BENCHMARK(Report<DisplaySummaryReport>)->Name("Summary of 32000")->Unit(benchmark::kMillisecond);
BENCHMARK(Report<DisplayDetailReport>)->Name("Details of 32000")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qel
