// The call under way in a log that is followed: what it has come to, and when its price changes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/FollowedLog.h"
#include "analysis/Warnings.h"

namespace qel {

struct PriceChange {
  Date At = 0;       // day and time
  std::string What;  // holds from then on: "Economy Tariff", "free time", ...
};

// All of it as if the call ended at the moment that it is asked for.
struct RunningCall {
  Date Start = 0;  // day and time
  std::string Number;
  Int32 Seconds;
  double Cost = 0;                    // in the user's currency
  std::optional<PriceChange> Change;  // the next one, within a week
  std::vector<Warning> Exceeded;      // thresholds, by all services' use so far
};

// Nothing where no call stands, and for one whose end must have been lost, since it would last longer than
// the settings let a connection last. Tells the user of nothing.
std::optional<RunningCall> CallUnderWay(const FollowedLog& log, Date now);

}  // namespace qel
