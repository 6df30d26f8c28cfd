// What the program does with the log in hand.
#pragma once

#include "analysis/Analyse.h"
#include "reports/ReportOf.h"

namespace qel {

inline void ProcessNow() {
  Pricing pricing(settings, period);
  ProcessLog(pricing, logFile, findings, analysis);
}

inline ReportOf NowReported() { return {analysis, settings, period}; }

}  // namespace qel
