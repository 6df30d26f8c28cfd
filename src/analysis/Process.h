// The state machine that turns the log's lines into connections: idle, dialling, connected.
#pragma once

#include <string_view>

#include "modemlog/LineClassifier.h"

namespace qel {

// Handles one line of the open log. Clears KeepReading at the first line that can no longer matter, and at a
// line without a date, which also sets LogCorrupt.
void Process(std::string_view line, const LineClassifier& classifier);

}  // namespace qel
