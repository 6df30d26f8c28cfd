#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/PatternSeparator.h"
#include "platform/Regional.h"
#include "platform/RegistryStore.h"
#include "platform/SystemLocale.h"
#include "support/Cases.h"

namespace qel {
namespace {

using namespace std::string_literals;

constexpr const char* Key = "HKEY_CURRENT_USER\\Control Panel\\International";

class RegionalValuesTest : public testing::Test {
 protected:
  RegionalValuesTest() {
    setenv("LC_ALL", "C", 1);
    store.CreateKey(Key);
  }
  ~RegionalValuesTest() override { unsetenv("LC_ALL"); }

  using Texts = std::vector<std::pair<const char*, std::string>>;
  RegionalValues ReadWith(const Texts& texts) {
    for (const auto& [name, text] : texts) store.Set(Key, name, {REG_SZ, text + '\0'});
    return ReadRegionalValues(store);
  }

  RegistryStore store;
};

TEST_F(RegionalValuesTest, WithoutStoreAndLocaleAreThoseOfTheUnitedStates) {
  for (const char* locale : {"C", "POSIX", "C.UTF-8", "xx_NOT_INSTALLED.UTF-8"}) {
    setenv("LC_ALL", locale, 1);
    const RegionalValues values = ReadRegionalValues(store);
    EXPECT_EQ(values.ShortDatePattern, "M/d/yyyy") << locale;
    EXPECT_EQ(values.CurrencySymbol, "$") << locale;
    EXPECT_EQ(values.LongDays[6], "Sunday") << locale;
  }
}

TEST_F(RegionalValuesTest, TheStoreGoesFirst) {
  const std::pair<const char*, std::string RegionalValues::*> cases[] = {
      {"sCurrency", &RegionalValues::CurrencySymbol},
      {"sMonDecimalSep", &RegionalValues::MoneyDecimal},
      {"sMonThousandSep", &RegionalValues::MoneyThousand},
      {"sDecimal", &RegionalValues::NumberDecimal},
      {"sThousand", &RegionalValues::NumberThousand},
      {"s1159", &RegionalValues::AM},
      {"s2359", &RegionalValues::PM}};
  for (const auto& [name, field] : cases) EXPECT_EQ(ReadWith({{name, "text\0junk"s}}).*field, "text") << name;
}

TEST_F(RegionalValuesTest, EmptyTextsStandOnlyWhereTheyMakeSense) {
  const RegionalValues values = ReadWith({{"sDecimal", ""},
                                          {"sShortDate", ""},
                                          {"sDate", ""},
                                          {"iCurrDigits", ""},
                                          {"sThousand", ""},
                                          {"s2359", ""}});
  EXPECT_EQ(values.NumberDecimal, ".");
  EXPECT_EQ(values.ShortDatePattern, "M/d/yyyy");
  EXPECT_EQ(values.DateSeparator, "/");
  EXPECT_EQ(values.CurrencyDigits, 2);
  EXPECT_EQ(values.NumberThousand + values.PM, "");
}

TEST_F(RegionalValuesTest, TheCurrencyNumberTellsSideAndBlank) {
  const struct {
    const char* number;
    int precedes, spaced;
  } cases[] = {{"0", 1, 0}, {"1", 0, 0}, {"2", 1, 1}, {"3", 0, 1}, {"4", 1, 0}, {"x", 1, 0}, {"-1", 1, 0}};
  for (const auto& c : cases) {
    const RegionalValues values = ReadWith({{"iCurrency", c.number}});
    EXPECT_EQ(values.SymbolPrecedes, c.precedes) << c.number;
    EXPECT_EQ(values.SymbolSpaced, c.spaced) << c.number;
  }
  store.Set(Key, "iCurrDigits", {REG_DWORD, std::string("\3\0\0\0", 4)});
  EXPECT_EQ(ReadRegionalValues(store).CurrencyDigits, 3);
  store.Set(Key, "iCurrDigits", {REG_DWORD, std::string("\xFF\xFF\xFF\xFF", 4)});
  EXPECT_EQ(ReadRegionalValues(store).CurrencyDigits, 2);
}

TEST_F(RegionalValuesTest, PatternAndSeparatorNeverDisagree) {
  for (const auto& [stored, date, time] : Cases<3>("platform/StoredPatterns")) {
    store.DeleteKey(Key);
    store.CreateKey(Key);
    std::istringstream words(stored);
    for (std::string name, text; std::getline(words >> std::ws, name, '=') && words >> text;)
      store.Set(Key, name, {REG_SZ, text + '\0'});
    const RegionalValues values = ReadRegionalValues(store);
    EXPECT_EQ(values.ShortDatePattern + " " + values.DateSeparator, date) << stored;
    EXPECT_EQ(values.TimePattern + " " + values.TimeSeparator, time) << stored;
  }
}

TEST(PatternSeparator, StandsBetweenTwoPlacesOfADateOrATime) {
  for (const auto& [pattern, separator, withStroke, numbers] : Cases("platform/Separators")) {
    EXPECT_EQ(SeparatorIn(pattern), separator) << pattern;
    EXPECT_EQ(WithSeparator(pattern, "/"), withStroke) << pattern;
    EXPECT_EQ(InNumbers(pattern), numbers) << pattern;
  }
}

TEST(SystemLocale, FormatsOfStrftimeBecomePatterns) {
  for (const auto& [format, pattern] : Cases<2>("platform/TimeFormats"))
    EXPECT_EQ(PatternOfStrftime(format), pattern) << format;
  EXPECT_EQ(PatternOfStrftime("%r", "%I.%M %p"), "hh.mm tt");
  for (const char* format : {"%j", "%", "%-", "%G"}) EXPECT_FALSE(PatternOfStrftime(format)) << format;
  EXPECT_FALSE(PatternOfStrftime("%r", "%r"));
}

TEST(SystemLocale, TextsComeInWindows1252) {
  const struct {
    const char *text, *charset;
    std::optional<std::string> result;
  } cases[] = {
      {"M\xC3\xA4rz", "UTF-8", "M\xE4rz"},
      {"\u202F", "UTF-8", "\xA0"},
      {"K\u010D", "UTF-8", {}},
      {"M\xE4rz", "ISO-8859-1", "M\xE4rz"},
      {"\xA4", "ISO-8859-15", "\x80"},
      {"plain", "KOI8-R", "plain"},
      {"\xC1", "KOI8-R", {}},
  };
  for (const auto& c : cases) EXPECT_EQ(FromCharset(c.text, c.charset), c.result) << c.text;
}

}  // namespace
}  // namespace qel
