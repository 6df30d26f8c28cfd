// The start of a run.
#pragma once

namespace qel {

// Puts the state of every module up to the analysis as a fresh process has it. The settings store stays open.
void ResetProgram();

}  // namespace qel
