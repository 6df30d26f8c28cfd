// qelreport --follow: a line for each call as it closes.
#pragma once

#include "cli/Arguments.h"
#include "cli/ReportRun.h"
#include "session/Session.h"

namespace qel {

// Prints the calls that close from now on until the user interrupts it, the system ends it, or nobody reads
// any more. What becomes of the log meanwhile is said on standard error.
ExitStatus RunFollowing(Session& session, const Arguments& arguments);

}  // namespace qel
