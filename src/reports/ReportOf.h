// What a report is built from.
#pragma once

#include "analysis/AnalysisResult.h"
#include "analysis/Period.h"
#include "settings/Settings.h"

namespace qel {

// A result, and the options and the period as they stand now.
struct ReportOf {
  ReportOf(AnalysisResult& analysis, const Settings& settings, const Period& period)
      : analysis(analysis), settings(settings), period(period), LastCosts(analysis.LastCosts) {}

  const AnalysisResult& analysis;
  const Settings& settings;
  const Period& period;
  CallCosts& LastCosts;  // of the result: what the Details price last, its next answered call repeats
};

}  // namespace qel
