// Dates, times and numbers as the program shows them, and small questions about paths and day names.
#pragma once

#include <array>
#include <string>

#include "values/Calendar.h"

namespace qel {

// The edit mask of the two date fields, such as "##/##/####".
extern std::string DateMask;

// Day names in the user's language, Monday first. Tariffs name their days by them.
extern std::array<std::string, 7> ShortDayNames;
extern std::array<std::string, 7> LongDayNames;

// Builds the three above from the regional values; once, at the start.
void BuildDateMask();
void BuildDayNames();

// A date text brought to the form that the date fields' mask expects: three parts of two digits at least,
// joined by the regional date separator. `separator` divides the given text; empty means the regional one. A
// text without two separators is taken as a date and given in the short form; raises 13 where it is none.
std::string format_date(const std::string& dateText, const std::string& separator = "");
std::string format_date(Date date);

// Hours, minutes and seconds of two digits at least. Without hours, whole hours are left out without a trace:
// for lengths known to be short.
std::string FormatTime(float seconds, bool noHours);

// A number's text with the currency's decimals always and up to `places` where there are any; empty for a
// text that is no number.
std::string Format_Dplaces(const std::string& text, Int16 places);

// The value of a text in regional form; what follows the number is ignored, an empty text is 0. Thousand
// separators before the decimal symbol do not end the number; a decimal symbol before the first of them is no
// regional form, and the text is read as it stands.
double XVal(const std::string& text);

// False for a folder.
bool FileExists(const std::string& path);

// Trims `text` and puts `pad` before it up to `width` characters.
std::string PadLeft(const std::string& text, char pad, Int16 width);

// 1 to 7, the position of a full day name; 0 when it is none.
Int16 DayIndex(const std::string& longName);

// The part of a path behind the last separator, the part up to and with it, and the part of a text before the
// first `mark` (all of it if there is none).
std::string FileNamePart(const std::string& path);
std::string FolderPart(const std::string& path);
std::string TextBefore(const std::string& text, const std::string& mark);

}  // namespace qel
