#include "reports/ComparisonReport.h"

#include <algorithm>

#include "core/ShownMoney.h"
#include "reports/ReportDocument.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

std::string RemarkOn(const OfferCost& offer) {
  std::string remark;
  const auto add = [&remark](const std::string& text) { remark += (remark.empty() ? "" : ", ") + text; };
  if (offer.Cheapest) add("cheapest");
  if (offer.Unpriced > 0) add(Counted(offer.Unpriced, "call") + " without a tariff for all its time");
  if (offer.Failed) add("a price is too large to be counted");
  return remark;
}

ComparisonRow RowOf(const Period& period, const std::string& name, double cost, double own) {
  return {name, MoneyText(cost), MoneyText(AMonth(period, cost - own)), ""};
}

std::string NameOf(const SettingsCost& settings) {
  return settings.File.empty() ? "these settings" : PathText(settings.File);
}

ComparisonTable SettingsTable(const Period& period, const Comparison& comparison) {
  ComparisonTable table{"All calls", "Settings", {}};
  double least = comparison.Own.Cost;
  for (const auto& other : comparison.Others) least = std::min(least, other.Cost);
  const auto add = [&](const SettingsCost& settings) {
    table.Rows.push_back(RowOf(period, NameOf(settings), settings.Cost, comparison.Own.Cost));
    if (settings.Cost == least) table.Rows.back().Remark = "cheapest";
  };
  add(comparison.Own);
  for (const auto& other : comparison.Others) add(other);
  return table;
}

ComparisonTable ServicesTable(const Period& period, const Comparison& comparison, const SettingsCost& other) {
  ComparisonTable table{NameOf(other) + ": " + MoneyText(other.Cost), "Service", {}};
  for (const auto& use : other.Services) {
    const ServiceUse* own = OwnUse(comparison, use.Service);
    table.Rows.push_back(RowOf(period, use.Service, use.TotalCost, own ? own->TotalCost : 0));
    if (!own) table.Rows.back() = {use.Service, MoneyText(use.TotalCost), "", "not in these settings"};
  }
  return table;
}

std::string TextOf(const ComparisonTable& table) {
  std::size_t nameWidth = table.NameTitle.size(), costWidth = 10;
  const std::string difference = "Difference a month";
  for (const auto& row : table.Rows) {
    nameWidth = std::max(nameWidth, row.Name.size());
    costWidth = std::max(costWidth, row.Cost.size());
  }
  const auto line = [&](const ComparisonRow& row) {
    return " " + row.Name + std::string(nameWidth - row.Name.size(), ' ') + "  " +
           PadLeft(row.Cost, ' ', costWidth) + "  " + PadLeft(row.Difference, ' ', difference.size()) +
           (row.Remark.empty() ? "" : "  " + row.Remark) + NewLine;
  };
  const std::string rule = " " + std::string(nameWidth + costWidth + difference.size() + 4, '-') + NewLine;
  std::string text =
      " " + table.Caption + NewLine + rule + line({table.NameTitle, "Cost", difference, ""}) + rule;
  for (const auto& row : table.Rows) text += line(row);
  return text;
}

}  // namespace

SettingsCost CostUnder(const ReportOf& of, const std::string& file) {
  UseByService use(of.settings);
  ForEachConnection(of, [&use](const DetailLine& line) { use.Add(line); });
  return {file, use.Services(), use.Totals().TotalCost};
}

std::string WhyNotCompared(const Settings& settings, bool anyCalls) {
  if (!settings.CalcCosts) return "costs are not calculated by these settings";
  return anyCalls ? "" : "no service was called in this period";
}

const ServiceUse* OwnUse(const Comparison& comparison, const std::string& service) {
  const auto& own = comparison.Own.Services;
  const auto found = std::ranges::find(own, service, &ServiceUse::Service);
  return found == own.end() ? nullptr : &*found;
}

ComparisonTable TableOf(const ReportOf& of, const ServiceComparison& service) {
  const auto nameOf = [&of](int index) { return ServiceNameOf(of.settings.Services[index]); };
  ComparisonTable table{
      nameOf(service.Service) + ": " + Counted(service.Sessions, "session") + ", " + MoneyText(service.Cost),
      "Costs of",
      {}};
  for (const auto& offer : service.Offers) {
    table.Rows.push_back(RowOf(of.period, nameOf(offer.Service), offer.Cost, service.Cost));
    table.Rows.back().Remark = RemarkOn(offer);
  }
  return table;
}

std::vector<ComparisonTable> ComparisonTables(const ReportOf& of, const Comparison& comparison) {
  std::vector<ComparisonTable> tables;
  for (const auto& service : comparison.Services) tables.push_back(TableOf(of, service));
  if (!comparison.Others.empty()) tables.push_back(SettingsTable(of.period, comparison));
  for (const auto& other : comparison.Others) tables.push_back(ServicesTable(of.period, comparison, other));
  return tables;
}

std::string ComparisonText(const ReportOf& of, const Comparison& comparison) {
  ReportDocument labels;
  labels.FillLabels(of, "Compare");
  std::string text = " " + labels.RepTitle + NewLine + NewLine + " Beginning: " + labels.RepBegin + NewLine +
                     " Ending:    " + labels.RepEnd + NewLine + " Period:    " + labels.RepPeriod + NewLine;
  for (const auto& table : ComparisonTables(of, comparison)) text += NewLine + TextOf(table);
  return text;
}

}  // namespace qel
