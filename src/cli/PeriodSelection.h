// Which days a run of qelreport reports on.
#pragma once

#include "cli/Arguments.h"
#include "session/Session.h"

namespace qel {

// Narrows the period of the whole log to the days of the arguments, by the rules that a user of the window
// has too. What is not granted is said on standard error. False with a complaint where there is no period.
bool ChoosePeriod(Session& session, const Arguments& arguments);

}  // namespace qel
