#include "support/FreshProgram.h"
#include "support/Regions.h"

namespace qel {

using Formats = FreshProgram;

TEST_F(Formats, NumbersAndAmountsFollowTheRegion) {
  EXPECT_EQ(FormatCurrency(1234.5, "$", 1, 0, 2, 0), "$1,234.50");
  EXPECT_EQ(FormatCurrency(0.12345, "EUR", 0, 1, 2, 4), "0.1235 EUR");
  EXPECT_EQ(Format_Dplaces("0.12345", 4), "0.1235");
  Region = Germany();
  NumberDecimal = ",", NumberThousand = ".", CurrencyDigits = 0;
  EXPECT_EQ(FormatCurrency(1234.5, "DM", 0, 1, 0, 2), "1.234,5 DM");
  EXPECT_EQ(Format_Dplaces("5,25", 4), "5,25");
  EXPECT_EQ(Format_Dplaces("5 Mark", 4), "");
  EXPECT_EQ(XVal("1.234,5 k"), 1234.5);
  EXPECT_EQ(XVal("1,5.3"), 1) << "a decimal symbol before the thousands is none";
}

TEST_F(Formats, TimesHaveTwoDigitsAtLeast) {
  EXPECT_EQ(FormatTime(3661, false), "01:01:01");
  EXPECT_EQ(FormatTime(59.6F, false), "00:00:59");
  EXPECT_EQ(FormatTime(5400, true), "30:00");
}

TEST_F(Formats, DatesFitTheirMask) {
  EXPECT_EQ(format_date("1-5 -99", "-"), "01/05/99");
  EXPECT_EQ(format_date("January 5, 1999"), "1/5/1999") << "no separators: the short date";
  EXPECT_THROW(format_date("never"), RunTimeError);
  DateSeparator = "-";
  for (const auto& [pattern, mask] : {std::pair{"yyyy-MM-dd", "####-##-##"}, {"d-MMM-yy", "##-AAA-##"}}) {
    ShortDatePattern = pattern;
    BuildDateMask();
    EXPECT_EQ(DateMask, mask);
  }
}

}  // namespace qel
