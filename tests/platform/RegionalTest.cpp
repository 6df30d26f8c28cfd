#include <cstdlib>
#include <gtest/gtest.h>
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
  const struct {
    Texts texts;
    const char *date, *dateSeparator, *time, *timeSeparator;
  } cases[] = {
      {{{"sDate", "-"}}, "M-d-yyyy", "-", "h:mm:ss tt", ":"},
      {{{"sDate", "-"}, {"sShortDate", "yyyy/MM/dd"}}, "yyyy/MM/dd", "/", "h:mm:ss tt", ":"},
      {{{"sDate", "-"}, {"sShortDate", "ddMMyy"}}, "ddMMyy", "-", "h:mm:ss tt", ":"},
      {{{"sTimeFormat", "HH'h'mm"}}, "M/d/yyyy", "/", "HH'h'mm", "h"},
      {{{"sTime", "."}}, "M/d/yyyy", "/", "h.mm.ss tt", "."},
      {{{"sTime", "h"}}, "M/d/yyyy", "/", "h'h'mm'h'ss tt", "h"},
  };
  for (const auto& c : cases) {
    store.DeleteKey(Key);
    store.CreateKey(Key);
    const RegionalValues values = ReadWith(c.texts);
    EXPECT_EQ(values.ShortDatePattern, c.date);
    EXPECT_EQ(values.DateSeparator, c.dateSeparator) << c.date;
    EXPECT_EQ(values.TimePattern, c.time);
    EXPECT_EQ(values.TimeSeparator, c.timeSeparator) << c.time;
  }
}

TEST(PatternSeparator, StandsBetweenTwoPlacesOfADateOrATime) {
  const struct {
    const char *pattern, *separator, *withStroke;
  } cases[] = {
      {"d. M. yyyy", ".", "d/M/yyyy"},
      {"d MMM yyyy", " ", "d/MMM/yyyy"},
      {"d' o''clock 'M", "o'clock", "d/M"},
      {"yyyy. MM. dd.", ".", "yyyy/MM/dd."},
      {"tt h:mm", ":", "tt h/mm"},
      {"ddMMyy", "", "ddMMyy"},
      {"", "", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(SeparatorIn(c.pattern), c.separator) << c.pattern;
    EXPECT_EQ(WithSeparator(c.pattern, "/"), c.withStroke) << c.pattern;
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
