#include <ctime>
#include <gtest/gtest.h>
#include <sstream>

#include "platform/Clock.h"
#include "platform/FormatMask.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"

namespace qel {

constexpr char International[] = "yyyy'-'MM'-'dd HH':'mm':'ss";

TEST(DateSerial, CarriesMonthsAndDaysOver) {
  for (const auto& [given, wanted] : Cases<2>("platform/CarriedDays")) {
    int year = 0, month = 0, day = 0;
    std::istringstream(given) >> year >> month >> day;
    std::string date;
    const int error = ErrorOf([&] { date = FormatByPattern(DateSerial(year, month, day), International); });
    EXPECT_EQ(error == 0 ? date.substr(0, 10) : std::to_string(error), wanted) << given;
  }
}

TEST(Calendar, ADateIsADayAndTheSecondsInIt) {
  for (const auto& [number, day, second, weekday, text] : Cases<5>("platform/Days")) {
    const Date date = std::stod(number);
    EXPECT_EQ(WholeDay(date), std::stod(day)) << number;
    EXPECT_EQ(SecondOfDay(date), std::stoi(second)) << number;
    EXPECT_EQ(Weekday(date), std::stoi(weekday)) << number;
    EXPECT_EQ(FormatByPattern(date, International), text);
  }
}

TEST(Calendar, TimesAreWholeSeconds) {
  EXPECT_EQ(TimeSerial(23, 59, 59) + 1.0 / SecondsPerDay, 1.0);
  EXPECT_EQ(SecondsBetween(TimeSerial(23, 59, 59), TimeSerial(0, 0, 0)), -86399);
  EXPECT_EQ(SecondsBetween(DateSerial(1999, 1, 1) + TimeSerial(23, 59, 59), DateSerial(1999, 1, 2)), 1);
  EXPECT_EQ(AddSeconds(TimeSerial(10, 0, 0), 59.4), TimeSerial(10, 0, 59));
  EXPECT_EQ(AddSeconds(TimeSerial(0, 1, 0), -3600), -1 - TimeSerial(23, 1, 0));
  EXPECT_EQ(DaysBetween(DateSerial(1999, 1, 1) + 0.9, DateSerial(1999, 1, 2) + 0.1), 1);
}

TEST(Calendar, AMonthLaterStaysInsideTheMonth) {
  EXPECT_EQ(AddMonths(DateSerial(1999, 1, 31), 1), DateSerial(1999, 2, 28));
  EXPECT_EQ(AddMonths(DateSerial(2000, 3, 31), -1), DateSerial(2000, 2, 29));
  EXPECT_EQ(AddMonths(DateSerial(1999, 11, 15) + 0.25, 2), DateSerial(2000, 1, 15) + 0.25);
}

TEST(Clock, TellsTheLocalTime) {
  ResetClock();
  const auto local = [] {
    const std::time_t now = std::time(nullptr);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::localtime(&now));
    return std::string(text);
  };
  const std::string before = local(), told = FormatByPattern(Now(), International);
  EXPECT_TRUE(before <= told && told <= local()) << told;
}

}  // namespace qel
