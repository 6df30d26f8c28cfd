// The reports as pages to look at, print or pass on: the figures of the text reports as tables, and drawn.
// All figures are those of the connections, and the pages are in UTF-8, as HtmlPage.h tells.
#pragma once

#include <string>

namespace qel {

// The latest analysis: totals, services, charts. A period without connections gives a page that says so.
std::string SummaryPage();

// The same, and behind it a row for each connection.
std::string DetailsPage();

// The statistics of the current log.
std::string StatisticsPage();

}  // namespace qel
