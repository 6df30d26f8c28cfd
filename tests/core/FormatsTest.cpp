#include <sstream>

#include "core/OSVersion.h"
#include "platform/DateConversion.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/FreshProgram.h"
#include "support/Regions.h"
#include "values/FormatMask.h"

namespace qel {

using Formats = FreshProgram;

std::string Formatted(const std::string& what, const std::string& given) {
  std::istringstream words(given);
  double number = 0;
  int places = 0, digits = 0;
  words >> number >> digits >> places;
  if (what == "before") return FormatCurrency(number, "$", 1, 0, Int16(digits), Int16(places));
  if (what == "behind") return FormatCurrency(number, "EUR", 0, 1, Int16(digits), Int16(places));
  if (what == "spaced") return FormatCurrency(number, "Fr", 1, 2, Int16(digits), Int16(places));
  if (what == "money") return MoneyText(number);
  if (what == "time") return FormatTime(static_cast<float>(number), false);
  if (what == "no hours") return FormatTime(static_cast<float>(number), true);
  if (what == "value") return std::to_string(XVal(given));
  if (what == "date") return format_date(given);
  if (what == "date by -") return format_date(given, "-");
  if (what == "file name") return FileNamePart(given);
  if (what == "folder") return FolderPart(given);
  if (what == "before a dot") return TextBefore(given, ".");
  if (what == "system") return SystemName(static_cast<PlatformId>(number), digits);
  const int width = std::stoi(what.substr(what.rfind(' ') + 1));
  return what.starts_with("zeros") ? PadLeft(given, '0', Int16(width)) : Format_Dplaces(given, Int16(width));
}

// The United States, and a region that swaps their decimal symbol and separator and writes no cents.
TEST_F(Formats, NumbersDatesAndAmountsFollowTheRegion) {
  for (const auto& columns : CasesOf("core/Formats")) {
    for (const bool inGermany : {false, true}) {
      Region = inGermany ? Germany() : UnitedStates();
      NumberDecimal = Region.NumberDecimal, NumberThousand = Region.NumberThousand;
      CurrencyDigits = inGermany ? 0 : 2;
      TimeSeparator = inGermany ? "." : ":";
      std::string text;
      if (const int error = ErrorOf([&] { text = Formatted(columns.at(0), columns.at(1)); }))
        text = "error " + std::to_string(error);
      EXPECT_EQ(text, inGermany ? columns.back() : columns.at(2)) << columns[0] << " " << columns[1];
    }
  }
}

TEST_F(Formats, NumbersNeedNoSeparators) {
  for (const auto& [decimal, thousand, text] :
       {std::tuple{",", "", "1234,5"}, {",", ",", "1234,5"}, {"", ",", "1234.5"}}) {
    NumberDecimal = decimal, NumberThousand = thousand;
    EXPECT_EQ(XVal(text), 1234.5);
  }
}

// The settings store says it, value by value.
TEST_F(Formats, TheRegionIsReadOnce) {
  const std::string key = "HKEY_CURRENT_USER\\Control Panel\\International";
  Registry.CreateKey(key);
  std::istringstream values(
      "sCountry=Land sCurrency=Cur iCurrency=3 iCurrDigits=4 sMonDecimalSep=d sMonThousandSep=t sDecimal=D "
      "sThousand=T sDate=- sTime=. sShortDate=d-M-yy");
  for (std::string name, text; std::getline(values >> std::ws, name, '=') && values >> text;)
    Registry.Set(key, name, {REG_SZ, text + '\0'});
  GetCurrencySymbolInfo();
  EXPECT_EQ(Country + " " + CurrencySymbol + " " + MoneyDecimal + MoneyThousand + NumberDecimal +
                NumberThousand + DateSeparator + TimeSeparator + " " + ShortDatePattern,
            "Land Cur dtDT-. d-M-yy");
  EXPECT_EQ(std::to_string(SymbolPrecedes) + std::to_string(SymbolSpaced) + std::to_string(CurrencyDigits),
            "014");
  EXPECT_EQ(MoneyText(2), "2D0000 Cur");
}

TEST_F(Formats, DaysAreKnownByTheirLongNames) {
  std::string days;
  for (std::size_t i = 0; i < 7; ++i)
    days += ShortDayNames[i] + std::to_string(DayIndex(LongDayNames[i])) +
            std::to_string(DayIndex(ShortDayNames[i]));
  EXPECT_EQ(days, "Mon10Tue20Wed30Thu40Fri50Sat60Sun70");
}

TEST_F(Formats, AFolderIsNoFile) {
  folder.Put("file", "");
  EXPECT_TRUE(FileExists(folder.Path("file")));
  EXPECT_FALSE(FileExists("") || FileExists(folder.Path()) || FileExists(folder.Path("none")));
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
