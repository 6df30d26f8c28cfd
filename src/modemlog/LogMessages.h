// What the user is told about the state of the log. Each one tests its own flag first, so that a caller can
// call them all in a row.
#pragma once

namespace qel {

void ShowLogMissing();  // once a run
void ShowLogCorrupt();
void ShowLogInvalid();
void ShowLogTooBig();

void ResetLogMessages();

}  // namespace qel
