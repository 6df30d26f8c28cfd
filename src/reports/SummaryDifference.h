// Where the Summary differs from the connections that the Details, the exports and the pages are made from.
//
// The Summary shows the totals that the analysis kept as it went. They also hold what was left over from
// before the period, and the calls of another service that shares a number.
#pragma once

#include <string>
#include <vector>

#include "reports/ReportOf.h"

namespace qel {

// For the user, in Windows-1252: first how much the Summary tells more or less in all,
// then a line for each service with the reasons. Empty where there is no difference to see. Asks and tells
// nobody; where the connections cannot be priced there is nothing to compare.
std::vector<std::string> SummaryDifferences(const ReportOf& of);

}  // namespace qel
