// The reports as pages to look at, print or pass on: the figures of the text reports as tables, and drawn.
// All figures are those of the connections, and the pages are in UTF-8, as HtmlPage.h tells.
#pragma once

#include <string>

#include "modemlog/LogFile.h"
#include "reports/ComparisonReport.h"
#include "reports/PriceExplained.h"
#include "reports/ReportOf.h"

namespace qel {

// An analysis of a log: totals, services, charts. A period without connections gives a page that says so.
std::string SummaryPage(const ReportOf& of, const LogFile& logFile);

// The same, and behind it a row for each connection; explained, with a part to unfold below it.
std::string DetailsPage(const ReportOf& of, const LogFile& logFile, const Explaining& explaining = {});

// What the calls would have cost: the tables of the comparison, and a chart of each service.
std::string ComparisonPage(const ReportOf& of, const LogFile& logFile, const Comparison& comparison);

// The statistics of a log.
std::string StatisticsPage(const LogFile& logFile, const LogFindings& findings);

}  // namespace qel
