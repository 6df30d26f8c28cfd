// Tools that rewrite the current log line by line: the purge and the optimizing.
#pragma once

#include <string>

#include "values/Calendar.h"

namespace qel {

inline constexpr char PurgedName[] = "ModemLog.pge";
inline constexpr char OptimizedName[] = "ModemLog.opt";

// Both work on CurrentLogPath by way of a working file in the program's folder and tell the display of their
// progress. A failure leaves the log as it was and is told in a message box. More than 32767 lines are such a
// failure, and so are a log that is written to meanwhile and one that is itself the working file or the
// safety copy.

// Drops the lines of the days `from` to `to`, and all without a date.
void DoPurge(Date from, Date to);

// Keeps, in capital letters, the lines that the analysis reads: those with a response string, a dial only
// with a number in it.
void DoOptimize();

}  // namespace qel
