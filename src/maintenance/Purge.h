// The purge: whole days go out of a log.
#pragma once

#include "maintenance/LogRewrite.h"
#include "values/Calendar.h"

namespace qel {

// Drops the lines of the days `from` to `to`, and all without a date, as RunTool does.
void DoPurge(const LogInHand& inHand, Date from, Date to);

}  // namespace qel
