// What a run of qelreport writes, and where it goes. All of it is UTF-8.
#pragma once

#include <optional>
#include <string>

#include "cli/Arguments.h"
#include "session/Session.h"

namespace qel {

// The statistics of the log in hand.
std::string StatisticsOutput(const Session& session, OutputFormat format);

// False with a complaint where writing to the output named would destroy the log or settings that the run
// reads.
bool MayWriteTo(const LogFile& logFile, const Arguments& arguments);

// Writes to the file, which keeps its old content until the new one is whole, or to standard output. False
// with a complaint where that fails.
bool WriteOut(const std::string& text, const std::optional<std::string>& path);

}  // namespace qel
