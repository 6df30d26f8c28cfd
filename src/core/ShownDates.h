// Dates and lengths of time as the program shows them and its fields take them.
#pragma once

#include <string>

#include "values/Calendar.h"

namespace qel {

// The edit mask of the fields that take a date, such as "##/##/####".
std::string DateMask();

// A date text brought to the form that the date fields' mask expects: three parts of two digits at least,
// joined by the regional date separator. `separator` divides the given text; empty means the regional one. A
// text without two separators is taken as a date and given in the short form; raises 13 where it is none.
std::string format_date(const std::string& dateText, const std::string& separator = "");
std::string format_date(Date date);

// The mask of clock times in reports: the region's, or a 12 hour one.
std::string TimeFormat(bool forceAMPM);
// Short date and time of day: "10/6/1998 12:49:48 AM".
std::string MomentText(Date date, Date time, bool forceAMPM);

// Hours, minutes and seconds of two digits at least. Without hours, whole hours are left out without a trace:
// for lengths known to be short.
std::string FormatTime(float seconds, bool noHours);

}  // namespace qel
