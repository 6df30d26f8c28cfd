// The user's thresholds: what an analysis exceeded is heard and shown before its report.
#pragma once

#include <string>
#include <vector>

#include "analysis/AnalysisResult.h"
#include "settings/Settings.h"

namespace qel {

struct Warning {
  Int16 Service;  // index into Services
  std::string Text;
};

// The services whose threshold the totals of some number have reached.
std::vector<Warning> ExceededWarnings(const Settings& settings, const AnalysisResult& result);

// Compares the totals of each number with its service's threshold; a value equal to the threshold exceeds it.
// Plays the warning sound once if any exceeded service wants it, then shows one message of all exceeded
// services if any of them wants that. A failure inside ends it without a word.
void CheckWarnings(const Settings& settings, const AnalysisResult& result);

}  // namespace qel
