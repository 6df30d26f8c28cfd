#include <gtest/gtest.h>
#include <sstream>

#include "platform/Calendar.h"
#include "platform/FormatMask.h"
#include "support/Cases.h"

namespace qel {

TEST(DateSerial, CarriesMonthsAndDaysOver) {
  for (const auto& [given, wanted] : Cases<2>("platform/CarriedDays")) {
    int year, month, day;
    std::istringstream(given) >> year >> month >> day;
    EXPECT_EQ(FormatByPattern(DateSerial(year, month, day), "yyyy'-'M'-'d"), wanted) << given;
  }
  EXPECT_EQ(DateSerial(1899, 12, 30), 0);
  EXPECT_EQ(DateSerial(1900, 1, 1), 2);
  EXPECT_THROW(DateSerial(9999, 12, 32), RunTimeError);
  EXPECT_THROW(DateSerial(10000, 1, 1), RunTimeError);
}

TEST(Calendar, WeekdaysRunFromMonday) {
  EXPECT_EQ(Weekday(DateSerial(1998, 10, 5)), 1);
  EXPECT_EQ(Weekday(DateSerial(1998, 10, 11)), 7);
  EXPECT_EQ(Weekday(DateSerial(1850, 1, 1)), 2);
}

TEST(Calendar, TimesAreWholeSeconds) {
  EXPECT_EQ(TimeSerial(23, 59, 59) + 1.0 / SecondsPerDay, 1.0);
  EXPECT_EQ(SecondsBetween(TimeSerial(23, 59, 59), TimeSerial(0, 0, 0)), -86399);
  EXPECT_EQ(SecondsBetween(DateSerial(1999, 1, 1) + TimeSerial(23, 59, 59), DateSerial(1999, 1, 2)), 1);
  EXPECT_EQ(AddSeconds(TimeSerial(10, 0, 0), 59), TimeSerial(10, 0, 59));
  EXPECT_EQ(SecondsBetween(TimeSerial(0, 1, 0), AddSeconds(TimeSerial(0, 1, 0), -3600)), -3600);
  EXPECT_EQ(DaysBetween(DateSerial(1999, 1, 1) + 0.9, DateSerial(1999, 1, 2) + 0.1), 1);
}

TEST(Calendar, AMonthLaterStaysInsideTheMonth) {
  EXPECT_EQ(AddMonths(DateSerial(1999, 1, 31), 1), DateSerial(1999, 2, 28));
  EXPECT_EQ(AddMonths(DateSerial(2000, 3, 31), -1), DateSerial(2000, 2, 29));
  EXPECT_EQ(AddMonths(DateSerial(1999, 11, 15), 2), DateSerial(2000, 1, 15));
}

}  // namespace qel
