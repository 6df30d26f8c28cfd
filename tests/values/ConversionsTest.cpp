// Tables of what texts, numbers and dates become, a case a line: (region =>) given (=> by what) => result.
// The region is the United States where none is named; the result is an error's number where one is raised.

#include <limits>
#include <map>
#include <sstream>

#include "platform/Clock.h"
#include "platform/SystemLocale.h"
#include "platform/TextToDate.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/Regions.h"
#include "values/CheckedInteger.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/DatePattern.h"
#include "values/DateText.h"
#include "values/NumberConversion.h"
#include "values/NumberFormat.h"

namespace qel {
namespace {

using Text = const std::string&;
using Conversion = std::string (*)(Text given, Text by);

std::map<std::string, RegionalValues> MakeRegions() {
  RegionalValues bare = Germany(), marked = Germany(), letter = Finland(), strokes = Finland(),
                 french = International(), mar;
  bare.NumberThousand = bare.CurrencySymbol = "";
  marked.TimeSeparator = letter.TimeSeparator = french.TimeSeparator = "h";
  marked.AM = "vorm.";
  strokes.DateSeparator = "/";
  strokes.ShortDatePattern = "dd/MM/yy";
  mar.ShortMonths[2] = mar.ShortDays[1] = "mar";
  return {
      {"US", UnitedStates()},
      {"Germany", Germany()},
      {"International", International()},
      {"Finland", Finland()},
      {"Bare", bare},
      {"Marked", marked},
      {"Letter", letter},
      {"Strokes", strokes},
      {"French", french},
      {"Mar", mar},
      {"Marks", {.AM = "a.m.", .PM = "p.m."}},
      {"OddMarks", {.AM = "1", .PM = "2"}},
      {"Comma", {.NumberDecimal = ","}},
      {"Pointless", {.NumberDecimal = ""}},
      {"Points", {.TimeSeparator = "."}},
      {"Padded", {.TimePattern = "hh:mm tt"}},
      {"NoMarks", {.TimePattern = "hh:mm tt", .AM = "", .PM = ""}},
  };
}

const std::map<std::string, RegionalValues> Regions = MakeRegions();

void ExpectTable(const std::string& name, Conversion conversion) {
  for (auto& columns : CasesOf(name)) {
    const std::string wanted = columns.back();
    columns.pop_back();
    const bool names = columns.size() > 1 && Regions.contains(columns.front());
    Region = names ? Regions.at(columns.front()) : UnitedStates();
    if (names) columns.erase(columns.begin());
    columns.resize(2);
    std::string result;
    const auto convert = [&] { result = conversion(FromUtf8Lossy(columns[0]), columns[1]); };
    if (const int error = ErrorOf(convert)) result = "error " + std::to_string(error);
    EXPECT_EQ(ToUtf8(result), wanted) << name << ": " << columns[0] << " " << columns[1];
  }
}

class Conversions : public RegionTest {
 protected:
  Conversions() { StopClockAt(DateSerial(2003, 5, 6) + TimeSerial(7, 8, 9)); }
  ~Conversions() override { ResetClock(); }
};

std::string Moment(Date date) { return FormatByPattern(date, "yyyy'-'MM'-'dd HH':'mm':'ss"); }

std::string Precise(double number) {
  std::ostringstream text;
  text.precision(17);
  text << number;
  return text.str();
}

std::string Carried(Text given, Text) {
  int year = 0, month = 0, day = 0;
  std::istringstream(given) >> year >> month >> day;
  return Moment(DateSerial(year, month, day)).substr(0, 10);
}

std::string PartsOfDate(Text given, Text) {
  const Date date = std::stod(given);
  const std::string text = FormatDate(date, "yyyy-mm-dd hh:nn:ss");
  return "day " + Str(WholeDay(date)).substr(WholeDay(date) >= 0) + ", second " +
         std::to_string(SecondOfDay(date)) + ", weekday " + std::to_string(Weekday(date)) + ", " + text;
}

std::string ReadDate(Text given, Text) {
  EXPECT_EQ(IsDate(given), ErrorOf([&] { TextToDate(given); }) == 0) << given;
  return Moment(TextToDate(given));
}

std::string ReadNumber(Text given, Text) {
  EXPECT_EQ(IsNumber(given), ErrorOf([&] { TextToNumber(given); }) == 0) << given;
  return NumberText(TextToNumber(given));
}

TEST_F(Conversions, DatesCarryOverAndFallIntoTheirParts) {
  ExpectTable("values/CarriedDays", Carried);
  ExpectTable("values/Days", PartsOfDate);
  ExpectTable("values/LaterMonths",
              [](Text date, Text months) { return Moment(AddMonths(TextToDate(date), std::stoi(months))); });
}

TEST_F(Conversions, DatesAreReadAndWrittenByTheRegion) {
  ExpectTable("values/Dates", ReadDate);
  ExpectTable("values/DateTexts", [](Text date, Text) { return DateText(TextToDate(date)); });
  ExpectTable("values/DateMasks", [](Text date, Text mask) { return FormatDate(TextToDate(date), mask); });
  ExpectTable("values/DatePatterns",
              [](Text date, Text pattern) { return FormatByPattern(TextToDate(date), pattern); });
}

TEST_F(Conversions, NumbersAreReadAndWrittenByTheRegion) {
  ExpectTable("values/Numbers", ReadNumber);
  ExpectTable("values/NumberTexts", [](Text number, Text) {
    return "<" + NumberText(std::stod(number)) + "> <" + Str(std::stod(number)) + ">";
  });
  ExpectTable("values/NumberMasks",
              [](Text number, Text mask) { return FormatNumber(std::stod(number), mask); });
}

TEST_F(Conversions, TextsBeginWithNumbersAndNumbersAreWhole) {
  ExpectTable("values/Vals", [](Text text, Text) { return Precise(Val(text)); });
  ExpectTable("values/RegionalVals", [](Text text, Text) { return Precise(XVal(text)); });
  ExpectTable("values/WholeNumbers", [](Text number, Text) { return Precise(Int16(std::stod(number))); });
}

TEST_F(Conversions, NumbersMayBeOfAnyLength) {
  const std::string large = "1" + std::string(400, '0'), small = "0." + std::string(400, '0') + "1";
  EXPECT_EQ(Val(large), std::numeric_limits<double>::max());
  EXPECT_EQ(Val(small), 0);
  EXPECT_EQ(Val(large + "e-400"), 1);
  EXPECT_EQ(Val(small + "e401"), 1);
}

TEST_F(Conversions, ErrorsOfTheSystemHaveNumbersAndWords) {
  ExpectTable("values/RunTimeErrors", [](Text given, Text name) {
    const int number = name.empty() ? std::stoi(given) : ErrorNumberOfErrno(std::stoi(given));
    return std::to_string(number) + " " + ErrorDescription(number);
  });
}

TEST_F(Conversions, FormatsOfTheSystemBecomePatterns) {
  ExpectTable("values/TimeFormats", [](Text format, Text halfDay) {
    return (halfDay.empty() ? PatternOfStrftime(format) : PatternOfStrftime(format, halfDay))
        .value_or("refused");
  });
  ExpectTable("values/Separators", [](Text pattern, Text) {
    return "<" + SeparatorIn(pattern) + "> <" + WithSeparator(pattern, "/") + "> <" + InNumbers(pattern) +
           ">";
  });
}

TEST_F(Conversions, DateTextIsReadBackToTheSecond) {
  for (const auto& [name, region] : Regions) {
    Region = region;
    for (int second = 0; second < SecondsPerDay; second += 59) {
      const Date time = TimeSerial(0, 0, second);
      ASSERT_EQ(TextToDate(DateText(time)), time) << name << ": " << DateText(time);
    }
  }
}

TEST_F(Conversions, EveryShortDateWithItsYearIsReadBack) {
  Region.ShortMonths[0] = "janv.";
  for (const auto& [pattern] : Cases<1>("values/ShortDates")) {
    Region.ShortDatePattern = pattern;
    Region.DateSeparator = pattern.find('|') != std::string::npos ? '|' : '/';
    for (Date date = DateSerial(1999, 12, 1); date < DateSerial(2001, 1, 31); ++date) {
      const Date moment = date + (static_cast<int>(date) % 2 == 0 ? TimeSerial(13, 5, 59) : 0);
      ASSERT_EQ(TextToDate(DateText(moment)), moment) << pattern << ": " << DateText(moment);
    }
  }
}

}  // namespace
}  // namespace qel
