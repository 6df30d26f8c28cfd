// What the user is told about the state of the log. Each one tests its own flag first, so that a caller can
// call them all in a row.
#pragma once

#include "modemlog/LogFile.h"

namespace qel {

void ShowLogMissing(const LogFindings& findings);  // once a run
void ShowLogCorrupt(const LogFindings& findings);
void ShowLogInvalid(const LogFindings& findings);
void ShowLogTooBig(const LogFindings& findings);

void ResetLogMessages();

}  // namespace qel
