// The Details report: every connection with its times, its length, and what it cost by dial-up, service and
// data.
#pragma once

#include "reports/PriceExplained.h"
#include "reports/ReportDocument.h"

namespace qel {

// Builds the report. It prices each connection itself, so its totals are its own and not the analysis's.
ReportDocument DisplayDetailReport(const ReportOf& of);

// Its text, for where nobody looks at the grid; with the price of each connection explained below it, or of
// one connection alone.
std::string DetailReportText(const ReportOf& of, const Explaining& explaining = {});

// A connection in one line, without an end: beginning, length, cost where costs are calculated, service,
// notes.
std::string DetailInOneLine(const Settings& settings, const DetailLine& line);

}  // namespace qel
