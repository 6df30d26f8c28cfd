// What a provider charges for the bytes that a connection received. Bytes sent are never charged.
#pragma once

#include <string>

#include "values/Calendar.h"

namespace qel {

inline constexpr double BytesPerMegabyte = 1048576;

// Cost in the user's currency of `bytes` read in a connection that began on `date`, beyond the service's
// allowance of megabytes for the charging period. Adds the bytes to the service's running use, so the order
// of calls matters. Unknown numbers pay the default cost per megabyte. Raises 6 where a period's bytes exceed
// 32 bits, 9 beyond period 100.
double GetDataCost(const std::string& number, double bytes, Date date);

}  // namespace qel
