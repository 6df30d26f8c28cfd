#include <map>

#include "platform/Clock.h"
#include "platform/DateConversion.h"
#include "platform/FormatMask.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/Regions.h"

namespace qel {

class TextToDateTest : public RegionTest {
 protected:
  TextToDateTest() { StopClockAt(DateSerial(2003, 5, 6) + TimeSerial(7, 8, 9)); }
  ~TextToDateTest() override { ResetClock(); }

  static RegionalValues Named(const std::string& name) {
    RegionalValues letter = Finland(), mar;
    letter.TimeSeparator = "h";
    mar.ShortMonths[2] = mar.ShortDays[1] = "mar";
    const std::map<std::string, RegionalValues> regions = {
        {"US", UnitedStates()},
        {"Germany", Germany()},
        {"International", International()},
        {"Finland", Finland()},
        {"Mar", mar},
        {"Marks", {.AM = "a.m.", .PM = "p.m."}},
        {"Points", {.TimeSeparator = "."}},
        {"Letter", letter},
    };
    return regions.at(name);
  }
};

TEST_F(TextToDateTest, DatesAndTimesFollowTheRegionOrMakeTheBestOfIt) {
  for (const auto& [region, text, date] : Cases<3>("platform/Dates")) {
    Region = Named(region);
    ASSERT_TRUE(IsDate(text)) << text;
    EXPECT_EQ(FormatByPattern(TextToDate(text), "yyyy'-'MM'-'dd HH':'mm':'ss"), date) << text;
  }
  Region = Germany();
  EXPECT_EQ(TextToDate("5. M\xC4RZ 1999"), DateSerial(1999, 3, 5));
}

TEST_F(TextToDateTest, WhatNoCalendarOrClockHasIsRefused) {
  for (const auto& [text] : Cases<1>("platform/NoDates")) {
    EXPECT_FALSE(IsDate(text)) << text;
    EXPECT_EQ(ErrorOf([&text = text] { TextToDate(text); }), TypeMismatch) << text;
  }
  EXPECT_FALSE(IsDate(" "));
}

TEST_F(TextToDateTest, NoTextIsTooStrange) {
  const RegionalValues bare = {
      .DateSeparator = "", .TimeSeparator = "", .ShortDatePattern = "", .TimePattern = ""};
  const std::string seeds[] = {"Wednesday, Feb. 3, 1999 10:15:30 PM", "31.12.1999 23:59:59",
                               "PM 9:05 1999-02-13"};
  const std::string bytes(" 0139:./-,ApmJ_\0\x80\xFF", 18);
  for (const RegionalValues& region : {UnitedStates(), Germany(), Finland(), bare}) {
    Region = region;
    for (const std::string& seed : seeds)
      for (std::size_t at = 0; at < seed.size(); ++at) {
        std::string text = seed;
        text[at] = bytes[at * 7 % bytes.size()];
        for (const std::string& damaged : {text, text.substr(0, at + 1), text.substr(at)}) {
          if (!IsDate(damaged)) continue;
          const Date date = TextToDate(damaged);
          EXPECT_TRUE(date >= FirstDate && date < LastDate + 1) << damaged;
        }
      }
  }
}

TEST_F(RegionTest, DateTextIsTheRegionsWithSeconds) {
  const Date day = DateSerial(1999, 2, 3);
  const Date time = TimeSerial(15, 4, 5);
  EXPECT_EQ(DateText(day), "2/3/1999");
  EXPECT_EQ(DateText(time), "3:04:05 PM");
  EXPECT_EQ(DateText(day + time), "2/3/1999 3:04:05 PM");
  EXPECT_EQ(DateText(0), "12:00:00 AM");
  Region.TimePattern = "hh:mm tt";
  EXPECT_EQ(DateText(time), "03:04:05 PM");
  Region.AM = Region.PM = "";
  EXPECT_EQ(DateText(time), "15:04:05");
  Region = Finland();
  EXPECT_EQ(DateText(day + time), "3.2.1999 15:04:05");
  Region.DateSeparator = '/';
  Region.ShortDatePattern = "dd/MM/yy";
  EXPECT_EQ(DateText(day + time), "03/02/99 15.04.05");
}

TEST_F(RegionTest, DateTextIsReadBackToTheSecond) {
  const RegionalValues marks = {.AM = "a.m.", .PM = "p.m."}, oddMarks = {.AM = "1", .PM = "2"};
  RegionalValues italian = Finland(), french = International();
  italian.DateSeparator = "/";
  italian.ShortDatePattern = "dd/MM/yy";
  french.TimeSeparator = "h";
  for (const RegionalValues& region :
       {UnitedStates(), Germany(), International(), Finland(), marks, italian, french, oddMarks}) {
    Region = region;
    for (int second = 0; second < SecondsPerDay; second += 59) {
      const Date time = TimeSerial(0, 0, second);
      ASSERT_EQ(TextToDate(DateText(time)), time) << DateText(time);
    }
  }
}

TEST_F(RegionTest, EveryShortDateWithItsYearIsReadBack) {
  Region.ShortMonths[0] = "janv.";
  for (const auto& [pattern] : Cases<1>("platform/ShortDates")) {
    Region.ShortDatePattern = pattern;
    Region.DateSeparator = pattern.find('|') != std::string::npos ? '|' : '/';
    for (Date date = DateSerial(1999, 12, 1); date < DateSerial(2001, 1, 31); ++date) {
      const Date moment = date + (static_cast<int>(date) % 2 == 0 ? TimeSerial(13, 5, 59) : 0);
      ASSERT_EQ(TextToDate(DateText(moment)), moment) << pattern << ": " << DateText(moment);
    }
  }
}

}  // namespace qel
