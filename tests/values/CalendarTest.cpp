#include <ctime>
#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "values/CheckedInteger.h"
#include "values/DateFormat.h"

namespace qel {

TEST(Calendar, TimesAreWholeSeconds) {
  EXPECT_EQ(TimeSerial(23, 59, 59) + 1.0 / SecondsPerDay, 1.0);
  EXPECT_EQ(SecondsBetween(TimeSerial(23, 59, 59), TimeSerial(0, 0, 0)), -86399);
  EXPECT_EQ(SecondsBetween(DateSerial(1999, 1, 1) + TimeSerial(23, 59, 59), DateSerial(1999, 1, 2)), 1);
  EXPECT_EQ(AddSeconds(TimeSerial(10, 0, 0), 59.4), TimeSerial(10, 0, 59));
  EXPECT_EQ(AddSeconds(TimeSerial(0, 1, 0), -3600), -1 - TimeSerial(23, 1, 0));
  EXPECT_EQ(DaysBetween(DateSerial(1999, 1, 1) + 0.9, DateSerial(1999, 1, 2) + 0.1), 1);
}

TEST(CheckedInteger, OverflowsInsteadOfWrapping) {
  Int16 full = 32767;
  EXPECT_EQ(full + Int32(40000), 72767) << "two widths meet in the wider";
  EXPECT_THROW(++full, RunTimeError);
  EXPECT_THROW(Int16(300) * 200, RunTimeError);
}

TEST(Clock, TellsTheLocalTime) {
  ResetClock();
  const auto local = [] {
    const std::time_t now = std::time(nullptr);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::localtime(&now));
    return std::string(text);
  };
  const std::string before = local(), told = FormatByPattern(Now(), "yyyy'-'MM'-'dd HH':'mm':'ss");
  EXPECT_TRUE(before <= told && told <= local()) << told;
}

}  // namespace qel
