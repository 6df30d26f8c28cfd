#include "platform/DateConversion.h"
#include "platform/FormatMask.h"
#include "support/Cases.h"
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
}

// Mask, short date, field and reading agree, whatever the pattern.
TEST_F(Formats, DateFieldsTakeEveryShortDate) {
  for (const auto& [pattern, separator, mask, fifth] : Cases("core/DateFields")) {
    ShortDatePattern = Region.ShortDatePattern = pattern;
    DateSeparator = Region.DateSeparator = separator.empty() ? "/" : separator;
    Region.TimeSeparator = separator == "." ? "." : ":";
    BuildDateMask();
    EXPECT_EQ(DateMask, mask) << pattern;
    EXPECT_EQ(format_date(DateSerial(1999, 3, 5)), fifth) << pattern;
    const std::string shortDate = FormatDate(DateSerial(1999, 3, 5), "Short Date");
    EXPECT_EQ(IsDate(shortDate) ? format_date(shortDate) : fifth, fifth) << pattern;
    for (Date date = DateSerial(1998, 1, 1); date < DateSerial(2003, 1, 1); date += 1) {
      const std::string text = format_date(date);
      ASSERT_EQ(text.size(), DateMask.size()) << pattern << ": " << text;
      ASSERT_EQ(TextToDate(text), date) << pattern << ": " << text;
    }
  }
}

}  // namespace qel
