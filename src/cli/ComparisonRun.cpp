#include "cli/ComparisonRun.h"

#include <map>
#include <optional>

#include "cli/ReportOutput.h"
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "registry/StoredRegion.h"
#include "settings/SettingsExchange.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

// Warnings are of the user's own settings, and nobody has asked for those of others.
class WithoutWarnings : public CommandLineHost {
 public:
  Answer MessageBox(const Message&) override { return Answer::OK; }
};

void Refuse(const std::string& file, const std::string& why) {
  Complain("cannot compare with " + ShownPath(file) + ": " + why);
}

// What the settings in a file hold is read by the regional values there; what is shown follows the user's.
bool LoadSettings(Session& session, const std::string& file) {
  IgnoreErrors([&] { session.store.Open(file, RegistryStore::Access::ReadOnly); });
  const Meanwhile there(Region, GetCurrencySymbolInfo(session.store));
  std::string why;
  if (!FindSettingsFile(file, why)) {
    Refuse(file, ToUtf8(why));
    return false;
  }
  session.LoadSettings();
  if (!session.settings.CalcCosts) Refuse(file, WhyNotCompared(session.settings, true));
  return session.settings.CalcCosts;
}

// What the same log and period cost under the settings of a file. Nothing with a complaint where they cannot
// be had.
std::optional<SettingsCost> PriceUnder(const std::string& file, const Session& own) {
  WithoutWarnings host;
  const Surroundings around(host, host);
  Session session;
  try {
    if (!LoadSettings(session, file)) return std::nullopt;
    session.logFile = own.logFile;
    session.findings = own.findings;
    session.period = own.period;
    TellUnknownDays(session.settings);
    session.ProcessLog();
    if (session.analysis.ConnectionsExceeded || !host.ReportReady())
      Refuse(file, "the log holds more than these settings allow");
    else
      return CostUnder(session.Reported(), file);
  } catch (const ProgramEnd&) {
    Refuse(file, "the log cannot be priced by it");  // the host said why
  }
  return std::nullopt;
}

void TellGaps(const Settings& settings, const std::vector<ServiceComparison>& services) {
  std::map<int, int> unpriced;  // calls, by offer
  for (const auto& service : services)
    for (const auto& offer : service.Offers) unpriced[offer.Service] += offer.Unpriced;
  for (const auto& [offer, calls] : unpriced)
    if (calls > 0)
      Complain(ToUtf8(ServiceNameOf(settings.Services[offer]) + ": no tariff holds all of " +
                      Counted(calls, "call") + ", so that its costs come out too low"));
}

}  // namespace

ExitStatus RunComparison(Session& session, const Arguments& arguments) {
  const ReportOf report = session.Reported();
  Comparison comparison{CostUnder(report), CompareTariffs(report), {}};
  const bool compareSettings = !arguments.compare.empty() && !comparison.Own.Services.empty();
  const std::string why = WhyNotCompared(session.settings, compareSettings || !comparison.Services.empty());
  if (!why.empty()) {
    Complain("cannot compare: " + why);
    return NoReport;
  }
  TellGaps(session.settings, comparison.Services);
  for (const auto& file : arguments.compare)
    if (auto other = PriceUnder(file, session)) comparison.Others.push_back(std::move(*other));
  const std::string text = WrittenReport(report, session.logFile, comparison, arguments.format);
  if (!WriteOut(text, arguments.output)) return NoReport;
  if (comparison.Others.size() < arguments.compare.size()) return NoReport;
  return session.analysis.ConnectionsExceeded ? IncompleteReport : WholeReport;
}

}  // namespace qel
