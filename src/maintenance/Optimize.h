// The optimizing: of a log, only what the analysis reads stays.
#pragma once

#include "maintenance/LogRewrite.h"
#include "settings/Settings.h"

namespace qel {

// Keeps, in capital letters, the lines with a response string, a dial only with a number in it, as RunTool
// does.
void DoOptimize(const LogInHand& inHand, const Settings& settings, bool isArchive);

}  // namespace qel
