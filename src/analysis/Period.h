// The days that a report is of.
#pragma once

#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

struct Period {
  Date PeriodStart = 0, PeriodEnd = 0;  // whole days, both inside the period
  Int16 PeriodDays;                     // both ends counted
};

}  // namespace qel
