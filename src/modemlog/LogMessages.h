// What the user is told about the state of the log.
#pragma once

namespace qel {

// What is wrong with a log of which LogFindings say so.
inline constexpr char WhyTimesForDates[] =
    "its lines begin with the time where the date should stand, so no call has a day";

void ShowLogMissing();
void ShowLogCorrupt();
// For a log without dates; `timesForDates` where it has times in their place.
void ShowLogInvalid(bool timesForDates);
void ShowLogTooBig();

}  // namespace qel
