// The analysis: one pass over a log for a period.
#pragma once

#include "analysis/AnalysisResult.h"
#include "analysis/Pricing.h"
#include "modemlog/LogFile.h"

namespace qel {

// Connections and totals of the period. `entries` of the log are for the progress that the display is told.
// Tells the user of limits, incomplete tariffs and exceeded warnings.
AnalysisResult Analyse(const Settings& settings, const LogFile& logFile, float entries, const Period& period);

// The same by a pricing in hand. `result` is filled from its initial state.
void Analyse(Pricing& pricing, const LogFile& logFile, float entries, AnalysisResult& result);

// The same for the log in hand, with the report shown behind it: `analysis` becomes the result, and a log
// with a line without a date is a corrupt one until the next analysis.
void ProcessLog(Pricing& pricing, const LogFile& logFile, LogFindings& findings, AnalysisResult& analysis);

// Takes back what an analysis has found of the log's health: the next one may never come to the same line.
void ForgetUndatedLine(LogFindings& findings, AnalysisResult& analysis);

}  // namespace qel
