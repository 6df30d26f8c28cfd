#include "platform/DateConversion.h"
#include "platform/FormatMask.h"
#include "support/Cases.h"
#include "support/Regions.h"

namespace qel {

const Date Morning = DateSerial(1999, 2, 3) + TimeSerial(9, 5, 7);  // a Wednesday

TEST_F(RegionTest, DatesFillTheirMaskOrTakeANamedFormOfTheRegion) {
  for (const auto& [region, date, mask, text] : Cases("platform/DateMasks")) {
    Region = region == "US" ? UnitedStates() : Germany();
    EXPECT_EQ(FormatDate(TextToDate(date), mask), text) << region << " " << mask;
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
  for (const auto& [date, pattern, text] : Cases<3>("platform/DatePatterns"))
    EXPECT_EQ(FormatByPattern(TextToDate(date), pattern), text) << pattern;
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

}  // namespace qel
