// Which log a run of qelreport reads, and whether it can be reported on at all.
#pragma once

#include <optional>
#include <string>

#include "session/Session.h"

namespace qel {

// Takes the named file as an opened archive, or else the default log of the settings after the test for
// corruption, and gathers its statistics. False with a complaint where there is nothing to report on.
bool SelectLog(Session& session, const std::optional<std::string>& named, EntryCount count);

// The same for a log that is to be followed, which may be empty yet, or end in the middle of a line.
bool SelectLogToFollow(Session& session, const std::optional<std::string>& named);

// Their first step, without a look at the file.
void NameLog(Session& session, const std::optional<std::string>& named);

// Whether the log in hand can be read; says on standard error why not.
bool CanBeRead(const LogFile& logFile);

}  // namespace qel
