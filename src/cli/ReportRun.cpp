#include "cli/ReportRun.h"

#include <algorithm>
#include <cerrno>
#include <optional>

#include "analysis/ReportPeriod.h"
#include "analysis/TariffDays.h"
#include "cli/LogSelection.h"
#include "cli/ReportOutput.h"
#include "core/ErrorHandler.h"
#include "core/Places.h"
#include "core/ShownDates.h"
#include "core/Surroundings.h"
#include "platform/Files.h"
#include "registry/RegistryText.h"
#include "registry/StoredRegion.h"
#include "reports/ReportExport.h"
#include "reports/SummaryDifference.h"
#include "settings/UserParameters.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// Reads the store, or the file named in its place. What cannot be read is complained of: a store leaves the
// built-in settings, a named file is no answer to what was asked, and False.
bool OpenSettings(RegistryStore& store, const std::optional<std::string>& named) {
  const std::string path = named.value_or(SettingsStorePath());
  try {
    if (named && !PathExists(path)) RaiseErrno(ENOENT, path);
    store.Open(path, RegistryStore::Access::ReadOnly);
    return true;
  } catch (const RunTimeError& error) {
    Complain("cannot read the settings in " + ShownPath(path) + ": " + ReasonOf(error) +
             (named ? "" : "; the built-in ones hold"));
    return !named;
  }
}

// The same road as the desktop program's start, in its order.
void LoadSettings(Session& session) {
  session.places = ReadEnvironment();
  Region = GetCurrencySymbolInfo(session.store);
  session.LoadSettings();
  SettleMissingLogPath(session.settings, session.places);
}

// Tariffs keep their days in the words of whoever wrote them, and a run by a schedule often has no language.
// Such a tariff would change the costs without a word.
void TellUnknownDays(const Settings& settings) {
  constexpr int byTariffs = 2;
  for (Int16 i = 0; i < settings.UsedServices; ++i)
    for (Int16 t = 0; t < settings.Services[i].UsedTariffs; ++t) {
      const TariffRecord& tariff = settings.Services[i].Tariffs[t];
      if (settings.Services[i].DialOption == byTariffs && !AreKnownDays(tariff.AppliesDays))
        Complain(ToUtf8(settings.Services[i].ServiceName + ": the tariff '" + tariff.Description +
                        "' never holds: '" + tariff.AppliesDays +
                        "' names no days in English or in the language of this run"));
    }
}

void TellDateOutsideLog(const LogFindings& findings, const char* option, const std::optional<Date>& date) {
  const auto [first, last] = std::minmax(findings.FirstEntryDate, findings.LastEntryDate);
  if (!date || (first <= *date && *date <= last)) return;
  Complain(std::string(option) + " " + IsoDate(*date) + " lies outside the log, which holds " +
           IsoDate(first) + " to " + IsoDate(last));
}

// Fills the two date fields as a user of the window would, who has their rules too. What is not granted is
// said on standard error. Answers whether both are dates.
bool TypePeriod(Session& session, const Arguments& arguments) {
  const LogFindings& findings = session.findings;
  const Date from = arguments.from.value_or(findings.FirstEntryDate),
             to = arguments.to.value_or(findings.LastEntryDate);
  PeriodFields fields(session.period, session.logFile, findings);
  fields.SetStarting(format_date(findings.FirstEntryDate));
  fields.SetEnding(format_date(findings.LastEntryDate));
  if (arguments.from) fields.SetStarting(format_date(from));
  if (arguments.to) fields.SetEnding(format_date(to));
  TellDateOutsideLog(findings, "--from", arguments.from);
  TellDateOutsideLog(findings, "--to", arguments.to);
  const Period& period = session.period;
  if (period.PeriodStart != from || period.PeriodEnd != to)
    Complain("the report is of " + IsoDate(period.PeriodStart) + " to " + IsoDate(period.PeriodEnd));
  return fields.checkProcess();
}

void TellDifferences(const ReportOf& report) {
  std::string text;
  for (const auto& line : SummaryDifferences(report)) text += (text.empty() ? "" : "\n  ") + line;
  if (!text.empty()) Complain(ToCleanUtf8(text));
}

bool ChoosePeriod(Session& session, const Arguments& arguments) {
  SetTrace("ReportRun", "ChoosePeriod");
  bool usable = false;
  Attempt([&] { usable = TypePeriod(session, arguments); });
  if (!usable) Complain("the short date format of the settings writes no dates that can be read back");
  return usable;
}

}  // namespace

ExitStatus RunReport(const Arguments& arguments, CommandLineHost& host) {
  const Surroundings around(host, host);
  Session session;
  if (!OpenSettings(session.store, arguments.settings)) return NoReport;
  LoadSettings(session);
  if (!SelectLog(session, arguments.log)) return NoReport;
  if (arguments.output && !MayWriteTo(*arguments.output, session.logFile, arguments.settings))
    return NoReport;
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
  if (arguments.report == ReportKind::Summary) TellDifferences(session.Reported());
  if (!WriteOut(ReportOutput(session, arguments.report, arguments.format), arguments.output)) return NoReport;
  return session.analysis.ConnectionsExceeded ? IncompleteReport : WholeReport;
}

}  // namespace qel
