// How much of a connection falls into its service's cost free period.
#pragma once

#include <string>

#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

// Seconds of overlap between the free period of the service that owns `number` and the connection from time
// of day `start` to `stop`. Only times of day are compared: a connection of more than a day yields one day's
// overlap at most. 0 where there is no service or no free period, and where anything fails.
Int32 GetFreeSeconds(const std::string& number, Date start, Date stop);

}  // namespace qel
