#include "platform/DateConversion.h"
#include "platform/FormatMask.h"
#include "support/Cases.h"
#include "support/Regions.h"

namespace qel {
namespace {

const Date Morning = DateSerial(1999, 2, 3) + TimeSerial(9, 5, 7);  // a Wednesday
const Date Evening = DateSerial(2001, 11, 25) + TimeSerial(22, 45, 0);

TEST_F(RegionTest, DatesFillTheirMask) {
  for (const auto& [date, mask, text] : Cases<3>("platform/DateMasks"))
    EXPECT_EQ(FormatDate(TextToDate(date), mask), text) << mask;
}

TEST_F(RegionTest, NamedFormsFollowTheRegion) {
  const struct {
    const char *name, *american, *german;
  } cases[] = {
      {"short date", "11/25/2001", "25.11.2001"},
      {"Long Date", "Sunday, November 25, 2001", "Sonntag, 25. November 2001"},
      {"Medium Date", "25-Nov-01", "25-Nov-01"},
      {"Long Time", "10:45:00 PM", "22:45:00"},
      {"Medium Time", "10:45 PM", "10:45 PM"},
      {"Short Time", "22:45", "22:45"},
      {"General Date", "11/25/2001 10:45:00 PM", "25.11.2001 22:45:00"},
  };
  for (const auto& c : cases) {
    Region = UnitedStates();
    EXPECT_EQ(FormatDate(Evening, c.name), c.american);
    Region = Germany();
    EXPECT_EQ(FormatDate(Evening, c.name), c.german);
  }
}

TEST_F(RegionTest, MasksDrawTheRegionsSeparatorsNamesAndMarks) {
  Region = Germany();
  Region.TimeSeparator = 'h';
  Region.AM = "vorm.";
  Region.PM = "nachm.";
  EXPECT_EQ(FormatDate(Morning, "d/m h:n AMPM"), "3.2 9h5 vorm.");
  EXPECT_EQ(FormatDate(DateSerial(1999, 3, 1), "dddd ddmmmyy"), "Montag 01M\344r99");
}

TEST_F(RegionTest, PatternsTellCapitalFromSmallLetters) {
  const Date NewYear = DateSerial(2005, 1, 1);
  const struct {
    Date date;
    const char *pattern, *text;
  } cases[] = {
      {Morning, "M/d/yyyy h:m:s", "2/3/1999 9:5:7"}, {Evening, "HH:mm hh tt t", "22:45 10 PM P"},
      {NewYear, "y yy yyyy", "5 05 2005"},           {0, "h H", "12 0"},
      {Morning, "h 'o''clock' ''''", "9 o'clock '"}, {Morning, "''d' D n", "3 D n"},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatByPattern(c.date, c.pattern), c.text) << c.pattern;
  Region.DateSeparator = 'x';
  EXPECT_EQ(FormatByPattern(Morning, "d/M"), "3/2");
}

TEST_F(RegionTest, OnlyTheYears100To9999HaveText) {
  EXPECT_EQ(FormatDate(DateSerial(100, 1, 1), "yyyy"), "0100");
  EXPECT_EQ(FormatDate(DateSerial(9999, 12, 31) + TimeSerial(23, 59, 59), "yyyy s"), "9999 59");
  for (const double date :
       {DateSerial(100, 1, 1) - 1, DateSerial(9999, 12, 31) + 0.999999, 1e300, -1e300, 0.0 / 0.0})
    EXPECT_THROW(FormatDate(date, "yyyy"), RunTimeError) << date;
}

}  // namespace
}  // namespace qel
