// The Details report: every connection with its times, its length, and what it cost by dial-up, service and
// data.
#pragma once

#include "reports/PriceExplained.h"
#include "reports/ReportDocument.h"

namespace qel {

// Builds the report. It prices each connection itself, so its totals are its own and not the analysis's.
ReportDocument DisplayDetailReport(const ReportOf& of);
// With the price of each connection explained below it, in the text; or a report of one connection alone.
ReportDocument DisplayDetailReport(const ReportOf& of, const Explaining& explaining);

}  // namespace qel
