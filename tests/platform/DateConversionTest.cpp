#include "platform/Clock.h"
#include "platform/DateConversion.h"
#include "support/ErrorOf.h"
#include "support/Regions.h"

namespace qel {
namespace {

constexpr auto Day = DateSerial;
constexpr auto Clock = TimeSerial;

class TextToDateTest : public RegionTest {
 protected:
  TextToDateTest() { StopClockAt(DateSerial(2003, 5, 6) + TimeSerial(7, 8, 9)); }
  ~TextToDateTest() override { ResetClock(); }
};

struct Case {
  const char* text;
  Date date;
};

template <std::size_t Count>
void ExpectDates(const Case (&cases)[Count]) {
  for (const auto& c : cases) {
    ASSERT_TRUE(IsDate(c.text)) << c.text;
    EXPECT_EQ(TextToDate(c.text), c.date) << c.text;
  }
}

TEST_F(TextToDateTest, DatesFollowTheRegionalOrderOrMakeTheBestOfIt) {
  ExpectDates({
      {"1/2/1999", Day(1999, 1, 2)},
      {" 01-02-99 ", Day(1999, 1, 2)},
      {"1.2.29", Day(2029, 1, 2)},
      {"13/2/1999", Day(1999, 2, 13)},
      {"1999/13/2", Day(1999, 2, 13)},
      {"1/2/0", Day(2000, 1, 2)},
      {"1/2/850", Day(850, 1, 2)},
      {"31/12", Day(2003, 12, 31)},
  });
  ExpectDates({{"12/30/1899", 0}, {"12/29/1899 12:00", -1.5}});
  Region = Germany();
  ExpectDates({
      {"12.31.99", Day(1999, 12, 31)},
      {"1999-02-03", Day(1999, 2, 3)},
      {"5. M\xC4RZ 1999", Day(1999, 3, 5)},
      {"31.12.", Day(2003, 12, 31)},
      {"10.11.12", Day(2012, 11, 10)},
  });
  ExpectDates({{"3. Dez. 1999 8:15", Day(1999, 12, 3) + Clock(8, 15, 0)}});
  Region = International();
  ExpectDates({
      {"99-02-03", Day(1999, 2, 3)},
      {"02/03/1999", Day(1999, 2, 3)},
      {"31.12.1999", Day(1999, 12, 31)},
      {"99 Feb 3", Day(1999, 2, 3)},
      {"2-3", Day(2003, 2, 3)},
  });
}

TEST_F(TextToDateTest, MonthsMayHaveNames) {
  ExpectDates({
      {"Jan 5, 1999", Day(1999, 1, 5)},
      {"5-feb-99", Day(1999, 2, 5)},
      {"Sep. 5, 1999", Day(1999, 9, 5)},
      {"99 May 31", Day(1999, 5, 31)},
  });
  Region.ShortMonths[2] = Region.ShortDays[1] = "mar";
  ExpectDates({{"Wednesday, February 03, 1999", Day(1999, 2, 3)},
               {"mar 5 1999", Day(1999, 3, 5)},
               {"mar 5 mar 1999", Day(1999, 3, 5)}});
}

TEST_F(TextToDateTest, TimesStandAloneOrBesideADate) {
  const Date evening = Clock(22, 15, 0);
  ExpectDates({
      {"10:5", Clock(10, 5, 0)},
      {"PM 10:15", evening},
  });
  ExpectDates({{"12 am", 0}, {"12:00 PM", 0.5}});
  ExpectDates({
      {"1/2/1999 10:15 PM", Day(1999, 1, 2) + evening},
      {"10:15 PM 1/2/1999", Day(1999, 1, 2) + evening},
      {"Jan 2, 1999, 22:15", Day(1999, 1, 2) + evening},
      {"1/2 10 PM", Day(2003, 1, 2) + Clock(22, 0, 0)},
  });
  Region.AM = "a.m.";
  Region.PM = "p.m.";
  ExpectDates({{"10:15 p.m.", evening}, {"10:15 PM", evening}, {"9:00 A.M.", Clock(9, 0, 0)}});
}

TEST_F(TextToDateTest, ASeparatorOfDatesMayDivideTimesToo) {
  Region.TimeSeparator = '.';
  ExpectDates({
      {"10.15", Clock(10, 15, 0)},
      {"10.11.12", Clock(10, 11, 12)},
      {"12.10.99", Day(1999, 12, 10)},
      {"10:11", Clock(10, 11, 0)},
  });
  Region = Finland();
  ExpectDates({
      {"10.15", Clock(10, 15, 0)},
      {"10.11.12", Day(2012, 11, 10)},
      {"10.45.50", Clock(10, 45, 50)},
      {"31.12", Day(2003, 12, 31)},
  });
  Region.TimeSeparator = 'h';
  ExpectDates({{"10h15", Clock(10, 15, 0)}, {"10.11.1999 10h15", Day(1999, 11, 10) + Clock(10, 15, 0)}});
}

TEST_F(TextToDateTest, WhatNoCalendarOrClockHasIsRefused) {
  const char* const cases[] = {
      "",          " ",           "36000",          "12",          "-5",
      "1.2.3.4",   "2/30/1999",   "2/29/1999",      "13/13/1999",  "0/1/1999",
      "1/0/1999",  "32/1/1999",   "1/2/12345",      "1/2/0050",    "001/2/1999",
      "1/1999/2",  "22:15:61",    "24:00",          "10:60",       "10:15:",
      ":15",       "10:",         "1:2:3:4",        "100:00",      "13:00 PM",
      "10:15 XM",  "PM",          "10:15x",         "Monday",      "Jan",
      "Jan Feb 1", "Jan 1999",    "January 45",     "5 Janx 1999", "//",
      "1//2/1999", "1/2/",        "1/2/1999,",      "/1/2/1999",   "1,2,1999",
      "1,234",     "5 PM 6 PM",   "1/2 10:15 1999", "__/__/____",  "1_/2_/1999",
      "True",      "10:15 PM PM", "1/2/1999 5",
  };
  for (const char* text : cases) {
    EXPECT_FALSE(IsDate(text)) << text;
    EXPECT_EQ(ErrorOf([text] { TextToDate(text); }), TypeMismatch) << text;
  }
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
      for (std::size_t i = 0; i < seed.size() * bytes.size(); ++i) {
        const std::size_t at = i / bytes.size();
        std::string text = seed;
        text[at] = bytes[i % bytes.size()];
        for (const std::string& damaged : {text, text.substr(0, at + 1), text.substr(at)}) {
          if (!IsDate(damaged)) continue;
          const Date date = TextToDate(damaged);
          EXPECT_TRUE(date >= DateSerial(100, 1, 1) && date < DateSerial(9999, 12, 31) + 1) << damaged;
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
    for (int second = 0; second < SecondsPerDay; ++second) {
      const Date time = TimeSerial(0, 0, second);
      ASSERT_EQ(TextToDate(DateText(time)), time) << DateText(time);
    }
  }
}

TEST_F(RegionTest, EveryShortDateWithItsYearIsReadBack) {
  const char* const patterns[] = {
      "M/d/yyyy",    "M/d/yy",      "dd.MM.yyyy",    "d. M. yyyy",          "yyyy-MM-dd",
      "yy/MM/dd",    "yyyy.dd.MM.", "yyyy. MM. dd.", "dd-MMM-yy",           "ddMMMyy",
      "d MMMM yyyy", "ddd d/M/yy",  "MMMM d, yyyy",  "dddd, MMMM dd, yyyy", "d|M|yyyy"};
  Region.ShortMonths[0] = "janv.";
  for (const char* pattern : patterns) {
    Region.ShortDatePattern = pattern;
    Region.DateSeparator = std::string(pattern).find('|') != std::string::npos ? '|' : '/';
    for (Date date = DateSerial(1996, 1, 1); date < DateSerial(2004, 12, 31); ++date) {
      const Date moment = date + (static_cast<int>(date) % 2 == 0 ? TimeSerial(13, 5, 59) : 0);
      ASSERT_EQ(TextToDate(DateText(moment)), moment) << pattern << ": " << DateText(moment);
    }
  }
}

}  // namespace
}  // namespace qel
