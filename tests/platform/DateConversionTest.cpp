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
    RegionalValues letter = Finland(), strokes = Finland(), mar;
    letter.TimeSeparator = "h";
    strokes.DateSeparator = "/";
    strokes.ShortDatePattern = "dd/MM/yy";
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
        {"Strokes", strokes},
        {"Padded", {.TimePattern = "hh:mm tt"}},
        {"NoMarks", {.TimePattern = "hh:mm tt", .AM = "", .PM = ""}},
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

TEST_F(TextToDateTest, DateTextIsTheRegionsWithSeconds) {
  for (const auto& [region, date, text] : Cases<3>("platform/DateTexts")) {
    Region = International();
    const Date moment = TextToDate(date);
    Region = Named(region);
    EXPECT_EQ(DateText(moment), text);
  }
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
