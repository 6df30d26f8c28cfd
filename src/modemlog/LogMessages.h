// What the user is told about the state of the log.
#pragma once

namespace qel {

void ShowLogMissing();
void ShowLogCorrupt();
void ShowLogInvalid();
void ShowLogTooBig();

}  // namespace qel
