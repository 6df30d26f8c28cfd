// The drawn part of a report: charts of use and cost, each with its figures in a table. What a bar or a day
// leads to is the first connection that counts in it.
#pragma once

#include <string>
#include <vector>

#include "platform/Drawing.h"
#include "reports/ReportOf.h"
#include "reports/TariffComparison.h"
#include "reports/UseByService.h"
#include "reports/UseByTime.h"

namespace qel {

struct UseChart {
  Drawing Picture;
  std::string Table;  // markup
};

// Those that there is something to draw for, in the order in which they are read. `width` is that of each.
std::vector<UseChart> UseCharts(const UseByService& services, const UseByTime& times, bool withCosts,
                                double width);

// A bar for each offer of a service; all lead to its first connection.
Drawing OffersDrawing(const Settings& settings, const ServiceComparison& service, double width);

// Of all connections of a report.
std::vector<Drawing> ReportDrawings(const ReportOf& of, double width);

}  // namespace qel
