#include "reports/SummaryDifference.h"

#include <algorithm>
#include <cmath>

#include "analysis/AnalysisResult.h"
#include "analysis/Period.h"
#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"
#include "reports/SummaryReport.h"
#include "reports/UseByService.h"
#include "settings/Settings.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"
#include "values/NumberFormat.h"
#include "values/Region.h"

namespace qel {

namespace {

// Nobody is asked for a comparison that nobody asked for: what fails ends it.
class Unheard : public Host, public Display {
 public:
  Answer MessageBox(const Message&) override { return Answer::Abort; }
  Answer ErrorBox(const RunTimeError& error, const Message&) override { throw error; }
};

// The two sides of one service and what sets them apart.
struct Comparison {
  ServiceUse Summary, Connections;
  std::vector<std::string> Reasons;

  std::string Name() const { return std::string(Trim(Summary.Service)); }
};

class Comparisons : ReportOf {
 public:
  explicit Comparisons(const ReportOf& of);
  std::vector<std::string> Lines() const;

 private:
  Comparison& Of(const std::string& number);
  void AddRow(const ServiceTotal& total);
  void AddPassedOver();
  void AddCountedElsewhere(const ConnectionRecord& connection);
  void AddEstimate(const ConnectionRecord& connection);
  std::vector<Comparison> services;
};

void AddReason(Comparison& comparison, const std::string& reason) {
  auto& reasons = comparison.Reasons;
  if (std::find(reasons.begin(), reasons.end(), reason) == reasons.end()) reasons.push_back(reason);
}

Comparison& Comparisons::Of(const std::string& number) {
  const ServiceKey key = KeyOf(settings, number);
  for (auto& service : services)
    if (service.Summary.Key == key) return service;
  Comparison made;
  made.Summary.Key = key;
  for (const auto& name : {GetServiceName(settings, number), key.Number, number, std::string("(no number)")})
    if (made.Name().empty()) made.Summary.Service = name;
  services.push_back(made);
  return services.back();
}

void Comparisons::AddRow(const ServiceTotal& total) {
  ServiceUse row;
  row.Sessions = total.Connections;
  row.Seconds = total.Seconds;
  if (total.Seconds > 0) {
    row.BytesRead = total.BytesRead;
    row.TotalCost = settings.CalcCosts ? ShownCost(total) : 0;
  }
  Of(total.Number).Summary.Add(row);
}

bool HasNumber(const Settings& settings, const ServiceKey& key, const std::string& number) {
  if (key.Index < 0) return false;
  const ServiceRecord& service = settings.Services[key.Index];
  return service.ServiceNumber == number || service.ServiceAltNumber == number;
}

std::string CallsTo(const std::string& number) {
  if (number.empty()) return "calls without a number";
  return number == UndialledNumber ? "calls without a dial line" : "calls to " + number;
}

// A row takes the calls to both numbers of its service, whoever else has them; and the calls to a number that
// it had before the period, until it gets one of the period.
void Comparisons::AddCountedElsewhere(const ConnectionRecord& connection) {
  const std::string &number = connection.Number, calls = CallsTo(number);
  const bool shown = FirstSlotShown(analysis) <= connection.Slot && connection.Slot <= analysis.TotalsCount;
  const std::string& holder = analysis.ServiceTotals[connection.Slot].Number;
  const std::string leftOver = number.empty() ? "" : " (left over from before the period)";
  if (!shown) return AddReason(Of(number), "its " + calls + " are not counted");
  if (KeyOf(settings, holder) != KeyOf(settings, number)) {
    const std::string why =
        HasNumber(settings, KeyOf(settings, holder), number) ? ", which has that number too" : leftOver;
    AddReason(Of(number), "its " + calls + " are counted under " + Of(holder).Name() + why);
    AddReason(Of(holder), calls + (number.empty() ? "" : " of " + Of(number).Name()) + " are counted here");
  } else if (KeyOf(settings, analysis.SlotNumbers[connection.SlotNumber]) != KeyOf(settings, number)) {
    AddReason(Of(number), calls + " are not priced as its own" + leftOver);
  }
}

void Comparisons::AddEstimate(const ConnectionRecord& connection) {
  const bool estimated = connection.Kind == ConnectionKind::NoDisconnect;
  if (estimated && (connection.StartDate < period.PeriodStart || connection.EndDate > period.PeriodEnd))
    AddReason(Of(connection.Number),
              "the time supposed for a lost disconnect entry counts outside the period too");
}

void Comparisons::AddPassedOver() {
  for (int i = 1; i <= analysis.ConnectionCount; ++i) {
    const ConnectionRecord& connection = analysis.Connections[i];
    if (IsPassedOver(settings, connection) && connection.Slot <= analysis.TotalsCount)
      AddReason(Of(analysis.ServiceTotals[connection.Slot].Number),
                "connections with errors are counted, which the options do not show");
  }
}

Comparisons::Comparisons(const ReportOf& of) : ReportOf(of) {
  for (int slot = FirstSlotShown(analysis); slot <= analysis.TotalsCount; ++slot)
    AddRow(analysis.ServiceTotals[slot]);
  UseByService use(settings);
  ForEachConnection(of, [&](const DetailLine& line) {
    use.Add(line);
    AddCountedElsewhere(line.Connection);
    AddEstimate(line.Connection);
  });
  for (const auto& service : use.Services()) Of(service.Number).Connections = service;
  AddPassedOver();
}

// "2 sessions more, $1.20 less"; empty where the reports would show the same.
std::string DifferenceOf(const ServiceUse& summary, const ServiceUse& connections) {
  std::string text;
  const auto add = [&text](const std::string& amount, double difference) {
    text += (text.empty() ? "" : ", ") + amount + (difference > 0 ? " more" : " less");
  };
  const long sessions = summary.Sessions - connections.Sessions;
  if (sessions != 0) add(Counted(std::labs(sessions), "session"), static_cast<double>(sessions));
  const auto seconds = static_cast<double>(summary.Seconds - connections.Seconds);
  if (seconds != 0) add(FormatTime(static_cast<float>(std::fabs(seconds)), false), seconds);
  const auto bytes = static_cast<double>(summary.BytesRead - connections.BytesRead);
  if (std::fabs(bytes) >= 512) add(FormatNumber(std::fabs(bytes) / 1024, "#,##0") + "K of data", bytes);
  const double cost = summary.TotalCost - connections.TotalCost;
  if (std::fabs(cost) >= 0.5 * std::pow(10.0, -int{Region.CurrencyDigits}))
    add(MoneyText(std::fabs(cost)), cost);
  return text;
}

bool HasLimits(const Settings& settings, const ServiceKey& key) {
  if (key.Index < 0) return false;
  const ServiceRecord& service = settings.Services[key.Index];
  return service.ServiceOption == ServiceRecord::FlexibleRate ||
         (service.PerMeg != 0 && service.MegPeriod != "Session");
}

// Where no call is counted otherwise, the figures themselves tell why they differ.
std::string OtherReason(const Settings& settings, const Comparison& service) {
  const ServiceUse &summary = service.Summary, &connections = service.Connections;
  if (summary.Seconds <= 0 && summary.Sessions > 0 && summary.Seconds == connections.Seconds)
    return "it shows neither data nor cost of calls that took no time";
  if (summary.BytesRead != connections.BytesRead)
    return "it counts data that the log tells twice, before the period or behind another call";
  if (summary.Seconds == connections.Seconds && HasLimits(settings, summary.Key))
    return "use before the period counts towards its limits";
  return "the settings were changed since the log was processed, or a failure was passed over";
}

std::vector<std::string> Comparisons::Lines() const {
  ServiceUse summary, connections;
  std::vector<std::string> lines;
  for (const auto& service : services) {
    summary.Add(service.Summary);
    connections.Add(service.Connections);
    const std::string difference = DifferenceOf(service.Summary, service.Connections);
    if (difference.empty()) continue;
    std::string why;
    for (const auto& reason : service.Reasons) why += (why.empty() ? "" : ", ") + reason;
    lines.push_back(service.Name() + ": " + difference + "; " +
                    (why.empty() ? OtherReason(settings, service) : why) + ".");
  }
  if (lines.empty()) return lines;
  const std::string total = DifferenceOf(summary, connections);
  lines.insert(lines.begin(), total.empty()
                                  ? "The Summary puts calls under other services than the Details do:"
                                  : "The Summary tells " + total + " than the connections of this period:");
  return lines;
}

}  // namespace

std::vector<std::string> SummaryDifferences(const ReportOf& of) {
  try {
    Unheard unheard;
    const Surroundings around(unheard, unheard);
    return Comparisons(of).Lines();
  } catch (const RunTimeError&) {
    return {};
  }
}

}  // namespace qel
