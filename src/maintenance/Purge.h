// The purge: whole days go out of the current log.
#pragma once

#include "values/Calendar.h"

namespace qel {

// Drops the lines of the days `from` to `to`, and all without a date, as RunTool does.
void DoPurge(Date from, Date to);

}  // namespace qel
