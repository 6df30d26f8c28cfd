#include <gtest/gtest.h>

#include "ui/WeekAtAGlance.h"

namespace qel {

TEST(WeekAtAGlance, TellsWhoPricesWhenForThoseWhoCannotSeeIt) {
  Settings settings;
  ServiceRecord service;
  const auto words = [&] { return InWords(WeekOf(settings, service, DateSerial(1999, 1, 15)), service); };
  EXPECT_EQ(words(), "Every day: no tariff.");
  service.UsedTariffs = 2;
  service.Tariffs[0] = {.Description = "Peak",
                        .AppliesDays = "Mon - Fri",
                        .AppliesTimeStart = TimeSerial(8, 0, 0),
                        .AppliesTimeEnd = TimeSerial(11, 59, 0),
                        .Unit = ""};
  service.Tariffs[1] = {
      .Description = "Flat", .AppliesDays = "Everyday", .AppliesTimeEnd = TimeSerial(17, 59, 0), .Unit = ""};
  const std::string weekdays =
      "Mon to Fri: Flat from 00:00 to 07:59, Peak from 08:00 to 11:59, Flat from 12:00 to 17:59, no tariff "
      "from 18:00 to 23:59. ";
  EXPECT_EQ(words(), weekdays + "Sat and Sun: Flat from 00:00 to 17:59, no tariff from 18:00 to 23:59.");
  // The next holiday is on a Saturday; one on a Monday is past, one on a Wednesday later.
  settings.UsedHolidays = 3;
  for (const auto& [i, day] : {std::pair(0, 11), {1, 27}, {2, 23}})
    settings.Holidays[i] = DateSerial(1999, 1, day);
  EXPECT_EQ(words(),
            weekdays + "Sat, Sun and holidays: Flat from 00:00 to 17:59, no tariff from 18:00 to 23:59.");
}

}  // namespace qel
