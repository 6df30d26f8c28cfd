// A picture of one service's week: which tariff prices calls that begin in each minute of seven days and of a
// holiday, and where none does. Made anew as tariffs change.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "analysis/SettingsCheck.h"
#include "analysis/TariffWeek.h"
#include "controls/Timetable.h"

namespace qel {

struct WeekAtAGlance {
  // Minutes of a day in which one tariff, an index into those of the service, or NoTariff prices.
  struct Stretch {
    MinuteSpan Minutes;
    int Tariff;
    bool operator==(const Stretch&) const = default;
  };
  // Monday to Sunday, then the next holiday, or the last one; each day whole, in order. Nothing of holidays
  // where the settings have none.
  std::array<std::vector<Stretch>, DayCount> Days;
};

// Days, holidays and order as the pricing has them; the service need not be one of the settings.
WeekAtAGlance WeekOf(const Settings& settings, const ServiceRecord& service, Date today);

// The same for who cannot see it: "Mon to Fri: Economy from 00:00 to 07:59, Peak from 08:00 to 23:59. Sat and
// Sun: no tariff." Days that are alike are told together.
std::string InWords(const WeekAtAGlance& week, const ServiceRecord& service);

// As a control shows it.
Timetable::Content TimetableOf(const WeekAtAGlance& week, const ServiceRecord& service);

}  // namespace qel
