// When a tariff holds: the days, from the text that is stored of them, and the seconds of such a day. The
// text is in the language of the program that wrote it: a range holds on its days in whatever language it is
// read, as long as it is that of the reader or English.
#pragma once

#include <string>

#include "settings/ServiceRecords.h"
#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

struct Settings;

// The seconds of the day from and to which a tariff holds, the last minute included.
inline int FirstSecond(const TariffRecord& tariff) { return SecondOfDay(tariff.AppliesTimeStart); }
inline int LastSecond(const TariffRecord& tariff) { return SecondOfDay(tariff.AppliesTimeEnd) + 59; }

// Whether a tariff's days hold on a date. A tariff for one long day name may hold on the later days of the
// week up to Sunday as well, where the first three letters of the name are its short form, as in English; a
// range that wraps over Sunday never holds.
bool DayMatches(const Settings& settings, Date date, const std::string& appliesDays);

// 1 to 7, the position of a short day name of the user's language, or else of English, Monday being 1; 8 when
// it is none. Blanks around it are passed over.
Int16 GetDayIndex(const std::string& shortName);

bool IsHoliday(const Settings& settings, Date date);

// A range of days in the words of the user's language; any other text as it stands.
std::string DaysInUsersWords(const std::string& appliesDays);

// Whether the text names days in the user's language or in English; a tariff whose text does not never holds.
bool AreKnownDays(const std::string& appliesDays);

// The days that the text says to a reader, whether they hold or not: a bit for each day of the week, Monday
// being 1. A range goes round the week; 0 for "Holidays" and for what names no days.
unsigned DaysNamed(const std::string& appliesDays);

}  // namespace qel
