#include "cli/ReportRun.h"

#include <optional>

#include "analysis/TariffDays.h"
#include "cli/ComparisonRun.h"
#include "cli/FollowRun.h"
#include "cli/LogSelection.h"
#include "cli/PeriodSelection.h"
#include "cli/ReportOutput.h"
#include "cli/SettingsCheckRun.h"
#include "core/Places.h"
#include "core/Surroundings.h"
#include "platform/Files.h"
#include "registry/RegistryText.h"
#include "registry/StoredRegion.h"
#include "reports/DetailLines.h"
#include "reports/SummaryDifference.h"
#include "settings/UserParameters.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// Reads the store, or the file named in its place. What cannot be read is complained of: a store leaves the
// built-in settings to a report, but is no answer to a check; a named file is none to either, and False.
bool OpenSettings(RegistryStore& store, const Arguments& arguments) {
  const auto& named = arguments.settings;
  const bool needed = named || arguments.check;
  const std::string path = named.value_or(SettingsStorePath());
  try {
    if (named && !PathExists(path)) RaiseErrno(ENOENT, path);
    store.Open(path, RegistryStore::Access::ReadOnly);
    return true;
  } catch (const RunTimeError& error) {
    Complain("cannot read the settings in " + ShownPath(path) + ": " + ReasonOf(error) +
             (needed ? "" : "; the built-in ones hold"));
    return !needed;
  }
}

// The same road as the desktop program's start, in its order.
void LoadSettings(Session& session) {
  session.places = ReadEnvironment();
  Region = GetCurrencySymbolInfo(session.store);
  session.LoadSettings();
  SettleMissingLogPath(session.settings, session.places);
}

void TellDifferences(const ReportOf& report) {
  std::string text;
  for (const auto& line : SummaryDifferences(report)) text += (text.empty() ? "" : "\n  ") + line;
  if (!text.empty()) Complain(ToCleanUtf8(text));
}

bool HasConnection(const ReportOf& report, const std::optional<int>& number) {
  const int last = report.analysis.ConnectionCount;
  if (!number || IsReported(report, *number)) return true;
  Complain(
      "--explain " + std::to_string(*number) + ": the report " +
      (last == 0 ? "has no connections" : "has no such connection; the last one is " + std::to_string(last)));
  return false;
}

}  // namespace

void TellUnknownDays(const Settings& settings) {
  for (Int16 i = 0; i < settings.UsedServices; ++i)
    for (Int16 t = 0; t < settings.Services[i].UsedTariffs; ++t) {
      const TariffRecord& tariff = settings.Services[i].Tariffs[t];
      if (settings.Services[i].DialOption == ServiceRecord::ByTariffs && !AreKnownDays(tariff.AppliesDays))
        Complain(ToUtf8(settings.Services[i].ServiceName + ": the tariff '" + tariff.Description +
                        "' never holds: '" + tariff.AppliesDays +
                        "' names no days in English or in the language of this run"));
    }
}

ExitStatus RunReport(const Arguments& arguments, CommandLineHost& host) {
  const Surroundings around(host, host);
  Session session;
  if (!OpenSettings(session.store, arguments)) return NoReport;
  LoadSettings(session);
  if (arguments.check) return RunSettingsCheck(session, arguments);
  if (arguments.follow) return RunFollowing(session, arguments);
  const EntryCount count = arguments.stats ? EntryCount::Wanted : EntryCount::NotWanted;
  if (!SelectLog(session, arguments.log, count)) return NoReport;
  if (arguments.output && !MayWriteTo(session.logFile, arguments)) return NoReport;
  if (arguments.stats)
    return WriteOut(StatisticsOutput(session, arguments.format), arguments.output) ? WholeReport : NoReport;
  if (!ChoosePeriod(session, arguments)) return NoReport;
  TellUnknownDays(session.settings);
  session.ProcessLog();
  if (session.findings.LogCorrupt)
    Complain(ShownPath(session.logFile.CurrentLogPath) + ": entry " +
             std::to_string(session.analysis.EntriesProcessed + 1) +
             " has no date; the log is damaged and must be repaired first");
  if (!host.ReportReady()) return NoReport;
  if (!HasConnection(session.Reported(), arguments.explain.Only)) return NoReport;
  if (arguments.report == ReportKind::Summary) TellDifferences(session.Reported());
  if (arguments.report == ReportKind::Compare) return RunComparison(session, arguments);
  const std::string report = WrittenReport(session.Reported(), session.logFile, *arguments.report,
                                           arguments.format, arguments.explain);
  if (!WriteOut(report, arguments.output)) return NoReport;
  return session.analysis.ConnectionsExceeded ? IncompleteReport : WholeReport;
}

}  // namespace qel
