// The one clock: everything that asks for today or now asks here, so that tests can set it.
#pragma once

#include "values/Calendar.h"

namespace qel {

// Local date with its time of day, in whole seconds.
Date Now();
Date Today();

// Stops the clock at a moment, for tests; ResetClock lets it run again.
void StopClockAt(Date moment);
void ResetClock();

}  // namespace qel
