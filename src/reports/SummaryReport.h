// The Summary report: one row for each number that the analysis met, in the order in which it met them.
#pragma once

#include "analysis/AnalysisResult.h"
#include "reports/ReportDocument.h"

namespace qel {

// Builds the report. What cannot be added up in 16 or 32 bits goes to the error handler; that sum alone lacks
// it where the user goes on.
ReportDocument DisplaySummaryReport(const ReportOf& of);

// The first slot of ServiceTotals that a summary shows: the group "Unknown" only with time in it.
Int16 FirstSlotShown(const AnalysisResult& analysis);

// What a slot costs in a report: calls that were answered cost nothing.
double ShownCost(const ServiceTotal& total);
bool IsAnswered(const ServiceTotal& total);

}  // namespace qel
