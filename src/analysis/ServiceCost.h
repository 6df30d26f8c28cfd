// The provider's side of a connection: what connected time costs, telephone apart. Block lengths, the
// numbering of charging periods and the maximum charge belong to it.
#pragma once

#include <string>

#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

// Cost in the user's currency of `seconds` of connected time with the service that owns `number`, on the day
// that the connection began. A flexible rate adds the seconds to the service's running use of the charging
// period that holds `date`, so the order of calls matters. Unknown numbers pay the default cost per hour.
// Negative seconds give a negative cost. Raises 6 where a period's seconds exceed 32 bits, 9 beyond period
// 100.
double GetServiceCost(const std::string& number, Int32 seconds, Date date);

double SecondsToHours(float seconds);

// The number of the charging period that holds `date`, counted from PeriodStart; at least 0. Windows of fixed
// length from the first day of the report, not calendar months: "Month" is as long as the month that begins
// on that day. Raises 6 beyond 16 bits.
Int16 GetPeriodNumber(Date date, const std::string& periodName);

// `cost`, or the service's maximum charge per connection where that is less.
double ApplyMaxCharge(double cost, const std::string& number);

// Minutes that a begun block counts as; 0 for none.
Int16 ServiceBlockMinutes(const std::string& number);

// Blocks begun in `seconds`. Raises 6 beyond 16 bits.
Int16 GetBlockCount(Int16 minutes, Int32 seconds);

}  // namespace qel
