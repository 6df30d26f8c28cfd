// The optimizing: of the current log, only what the analysis reads stays.
#pragma once

namespace qel {

// Keeps, in capital letters, the lines with a response string, a dial only with a number in it, as RunTool
// does.
void DoOptimize();

}  // namespace qel
