// The check of the settings: what is doubtful in them, as text or JSON.
#pragma once

#include "cli/ReportRun.h"
#include "session/Session.h"

namespace qel {

// Prints the findings about the loaded settings. Says on standard error why they cannot be written.
ExitStatus RunSettingsCheck(Session& session, const Arguments& arguments);

}  // namespace qel
