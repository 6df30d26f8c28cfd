#include <sstream>

#include "core/OSVersion.h"
#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "platform/TextToDate.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/FreshProgram.h"
#include "support/Regions.h"
#include "values/DateFormat.h"

namespace qel {

using Formats = FreshProgram;

std::string Amount(const std::string& symbol, Int16 precedes, Int16 spaced, const std::string& given) {
  Region.CurrencySymbol = symbol;
  Region.SymbolPrecedes = precedes;
  Region.SymbolSpaced = spaced;
  std::istringstream words(given);
  double amount = 0;
  int digits = 0, places = 0;
  words >> amount >> digits >> places;
  Region.CurrencyDigits = Int16(digits);
  return FormatCurrency(amount, Int16(places));
}

std::string Formatted(const std::string& what, const std::string& given) {
  if (what == "before") return Amount("$", 1, 0, given);
  if (what == "behind") return Amount("EUR", 0, 1, given);
  if (what == "spaced") return Amount("Fr", 1, 2, given);
  if (what == "money") return MoneyText(std::stod(given));
  if (what == "time") return FormatTime(std::stof(given), false);
  if (what == "no hours") return FormatTime(std::stof(given), true);
  if (what == "date") return format_date(given);
  if (what == "date by -") return format_date(given, "-");
  std::istringstream words(given);
  int platform = 0, build = 0;
  words >> platform >> build;
  if (what == "system") return SystemName(static_cast<PlatformId>(platform), build);
  return Format_Dplaces(given, Int16(std::stoi(what.substr(what.rfind(' ') + 1))));
}

// The United States, and a region that swaps their decimal symbol and separator and writes no cents.
TEST_F(Formats, NumbersDatesAndAmountsFollowTheRegion) {
  for (const auto& columns : CasesOf("core/Formats")) {
    for (const bool inGermany : {false, true}) {
      Region = inGermany ? Germany() : UnitedStates();
      Region.CurrencyDigits = inGermany ? 0 : 2;
      Region.TimeSeparator = inGermany ? "." : ":";
      std::string text;
      if (const int error = ErrorOf([&] { text = Formatted(columns.at(0), columns.at(1)); }))
        text = "error " + std::to_string(error);
      EXPECT_EQ(text, inGermany ? columns.back() : columns.at(2)) << columns[0] << " " << columns[1];
    }
  }
}

// Mask, short date, field and reading agree, whatever the pattern.
TEST_F(Formats, DateFieldsTakeEveryShortDate) {
  for (const auto& [pattern, separator, mask, fifth] : Cases("core/DateFields")) {
    Region.ShortDatePattern = pattern;
    Region.DateSeparator = separator.empty() ? "/" : separator;
    Region.TimeSeparator = separator == "." ? "." : ":";
    EXPECT_EQ(DateMask(), mask) << pattern;
    EXPECT_EQ(format_date(DateSerial(1999, 3, 5)), fifth) << pattern;
    const std::string shortDate = FormatDate(DateSerial(1999, 3, 5), "Short Date");
    EXPECT_EQ(IsDate(shortDate) ? format_date(shortDate) : fifth, fifth) << pattern;
    for (Date date = DateSerial(1998, 1, 1); date < DateSerial(2003, 1, 1); date += 1) {
      const std::string text = format_date(date);
      ASSERT_EQ(text.size(), mask.size()) << pattern << ": " << text;
      ASSERT_EQ(TextToDate(text), date) << pattern << ": " << text;
    }
  }
}

}  // namespace qel
