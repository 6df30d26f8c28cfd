// The comparison of what the calls cost with what they would have cost elsewhere.
#pragma once

#include "cli/ReportRun.h"
#include "session/Session.h"

namespace qel {

// Writes the report for the analysis in hand. What cannot be compared is said on standard error and does not
// keep the rest from it, but the status tells of it.
ExitStatus RunComparison(Session& session, const Arguments& arguments);

}  // namespace qel
