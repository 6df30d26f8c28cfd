// The report of what calls would have cost by the costs of other services, and under other settings.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "reports/TariffComparison.h"
#include "reports/UseByService.h"

namespace qel {

// What the report's calls cost under some settings.
struct SettingsCost {
  std::string File;  // path in the system's bytes; empty for the settings in hand
  std::vector<ServiceUse> Services;
  double Cost = 0;
};

SettingsCost CostUnder(const ReportOf& of, const std::string& file = "");

struct Comparison {
  SettingsCost Own;
  std::vector<ServiceComparison> Services;
  std::vector<SettingsCost> Others;
};

// Why there is nothing to compare, in Windows-1252; empty where there is.
std::string WhyNotCompared(const Settings& settings, bool anyCalls);

// The use of a service under the settings in hand; none where it has another name there.
const ServiceUse* OwnUse(const Comparison& comparison, const std::string& service);

// As people read it: a table for each service, one of the settings, and one for each of the other ones. Money
// as it is shown; the difference is that of a month, to what the calls cost under the settings in hand.
struct ComparisonRow {
  std::string Name, Cost, Difference, Remark;
};

struct ComparisonTable {
  std::string Caption, NameTitle;
  std::vector<ComparisonRow> Rows;
};

ComparisonTable TableOf(const ReportOf& of, const ServiceComparison& service);
std::vector<ComparisonTable> ComparisonTables(const ReportOf& of, const Comparison& comparison);

// The report as text, lines ending in CR LF.
std::string ComparisonText(const ReportOf& of, const Comparison& comparison);

}  // namespace qel
