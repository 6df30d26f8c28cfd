#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is POSIX's
#include <sstream>
#include <string>

#include "platform/SystemLocale.h"
#include "registry/RegistryStore.h"
#include "registry/StoredRegion.h"
#include "support/Cases.h"
#include "values/CodePage.h"
#include "values/Region.h"

namespace qel {
namespace {

constexpr const char* Key = "HKEY_CURRENT_USER\\Control Panel\\International";

// The fields that are not those of the United States, each by its name.
std::string Differences(const RegionalValues& values) {
  const RegionalValues usual;
  std::ostringstream all;
  const auto tell = [&](const std::string& name, const auto& value, const auto& other) {
    if (value != other) all << (all.tellp() > 0 ? "; " : "") << name << "=" << value;
  };
  const auto tellEach = [&](const std::string& name, const auto& texts, const auto& others) {
    for (std::size_t i = 0; i < texts.size(); ++i) tell(name + std::to_string(i + 1), texts[i], others[i]);
  };
  tell("Country", values.Country, usual.Country);
  tell("CurrencySymbol", values.CurrencySymbol, usual.CurrencySymbol);
  tell("SymbolPrecedes", values.SymbolPrecedes, usual.SymbolPrecedes);
  tell("SymbolSpaced", values.SymbolSpaced, usual.SymbolSpaced);
  tell("CurrencyDigits", values.CurrencyDigits, usual.CurrencyDigits);
  tell("MoneyDecimal", values.MoneyDecimal, usual.MoneyDecimal);
  tell("MoneyThousand", values.MoneyThousand, usual.MoneyThousand);
  tell("NumberDecimal", values.NumberDecimal, usual.NumberDecimal);
  tell("NumberThousand", values.NumberThousand, usual.NumberThousand);
  tell("DateSeparator", values.DateSeparator, usual.DateSeparator);
  tell("TimeSeparator", values.TimeSeparator, usual.TimeSeparator);
  tell("ShortDatePattern", values.ShortDatePattern, usual.ShortDatePattern);
  tell("LongDatePattern", values.LongDatePattern, usual.LongDatePattern);
  tell("TimePattern", values.TimePattern, usual.TimePattern);
  tell("AM", values.AM, usual.AM);
  tell("PM", values.PM, usual.PM);
  tellEach("ShortDay", values.ShortDays, usual.ShortDays);
  tellEach("LongDay", values.LongDays, usual.LongDays);
  tellEach("ShortMonth", values.ShortMonths, usual.ShortMonths);
  tellEach("LongMonth", values.LongMonths, usual.LongMonths);
  return ToUtf8(all.str());
}

class RegionalValuesTest : public testing::Test {
 protected:
  RegionalValuesTest() { setenv("LC_ALL", "C", 1); }
  ~RegionalValuesTest() override { unsetenv("LC_ALL"); }
};

TEST_F(RegionalValuesTest, WhatStandsInTheStoreGoesFirst) {
  for (auto& [stored, wanted] : Cases<2>("registry/StoredRegions")) {
    RegistryStore store;
    store.CreateKey(Key);
    std::ranges::replace(stored, '~', '\0');
    std::istringstream texts(stored);
    for (std::string name, text;
         std::getline(texts >> std::ws, name, '=') && std::getline(texts, text, ';');) {
      if (text.starts_with('#'))
        store.Set(Key, name, {REG_DWORD, DwordBytes(static_cast<std::uint32_t>(std::stoi(text.substr(1))))});
      else
        store.Set(Key, name, {REG_SZ, text + '\0'});
    }
    EXPECT_EQ(Differences(GetCurrencySymbolInfo(store)), wanted) << stored;
  }
}

TEST_F(RegionalValuesTest, TheLocaleComesNext) {
  for (const auto& [name, wanted] : Cases<2>("registry/Locales")) {
    const locale_t locale = newlocale(LC_ALL_MASK, name.c_str(), locale_t{});
    if (!locale && !wanted.empty()) continue;
    if (locale) freelocale(locale);
    setenv("LC_ALL", name.c_str(), 1);
    EXPECT_EQ(Differences(GetCurrencySymbolInfo(RegistryStore())), wanted) << name;
  }
}

TEST(SystemLocale, TextsComeInWindows1252) {
  const struct {
    const char *text, *charset;
    std::optional<std::string> result;
  } cases[] = {
      {"M\xC3\xA4rz", "UTF-8", "M\xE4rz"},
      {"1\u202F234", "UTF-8",
       "1\xA0"
       "234"},
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
