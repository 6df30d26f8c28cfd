#include "registry/StoredRegion.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "platform/SystemLocale.h"
#include "registry/RegistryStore.h"
#include "values/DatePattern.h"

namespace qel {

namespace {

constexpr std::string_view InternationalKey = "HKEY_CURRENT_USER\\Control Panel\\International";

struct TextValue {
  const char* name;
  std::string RegionalValues::*field;
  bool mayBeEmpty;
};

const TextValue TextValues[] = {
    {"sCountry", &RegionalValues::Country, false},
    {"sCurrency", &RegionalValues::CurrencySymbol, false},
    {"sMonDecimalSep", &RegionalValues::MoneyDecimal, false},
    {"sMonThousandSep", &RegionalValues::MoneyThousand, true},
    {"sDecimal", &RegionalValues::NumberDecimal, false},
    {"sThousand", &RegionalValues::NumberThousand, true},
    {"sLongDate", &RegionalValues::LongDatePattern, false},
    {"s1159", &RegionalValues::AM, true},
    {"s2359", &RegionalValues::PM, true},
};

// A value of the store as text: a text up to its first zero character, a DWORD as its digits.
std::optional<std::string> StoredText(const RegistryStore& store, const char* name) {
  const RegistryValue* value = store.Query(InternationalKey, name);
  if (!value) return std::nullopt;
  if (value->Type == REG_SZ) return value->Data.substr(0, value->Data.find('\0'));
  if (value->Type != REG_DWORD || value->Data.size() != 4) return std::nullopt;
  return std::to_string(DwordOf(value->Data));
}

std::optional<std::string> FilledText(const RegistryStore& store, const char* name) {
  auto text = StoredText(store, name);
  return text && !text->empty() ? text : std::nullopt;
}

// A whole number of 0 to `most`.
std::optional<int> StoredNumber(const RegistryStore& store, const char* name, int most) {
  const auto text = FilledText(store, name);
  if (!text) return std::nullopt;
  int number{};
  const char* end = text->data() + text->size();
  const auto read = std::from_chars(text->data(), end, number);
  const bool whole = read.ec == std::errc{} && read.ptr == end;
  return whole && number >= 0 && number <= most ? std::optional(number) : std::nullopt;
}

// A pattern and the separator inside it.
struct SeparatedPattern {
  std::string RegionalValues::*pattern;
  std::string RegionalValues::*separator;
  const char* patternName;
  const char* separatorName;
};

const SeparatedPattern SeparatedPatterns[] = {
    {&RegionalValues::ShortDatePattern, &RegionalValues::DateSeparator, "sShortDate", "sDate"},
    {&RegionalValues::TimePattern, &RegionalValues::TimeSeparator, "sTimeFormat", "sTime"},
};

void TakePatterns(RegionalValues& values, const RegistryStore& store) {
  for (const auto& [pattern, separator, patternName, separatorName] : SeparatedPatterns) {
    const auto storedPattern = FilledText(store, patternName);
    const auto storedSeparator = FilledText(store, separatorName);
    if (storedPattern)
      values.*pattern = *storedPattern;
    else if (storedSeparator)
      values.*pattern = WithSeparator(values.*pattern, *storedSeparator);
    if (storedSeparator) values.*separator = *storedSeparator;
    const std::string own = SeparatorIn(values.*pattern);
    if (!own.empty()) values.*separator = own;
  }
}

void TakeMoneyNumbers(RegionalValues& values, const RegistryStore& store) {
  if (const auto placement = StoredNumber(store, "iCurrency", 3)) {
    values.SymbolPrecedes = *placement % 2 == 0 ? 1 : 0;
    values.SymbolSpaced = *placement >= 2 ? 1 : 0;
  }
  if (const auto digits = StoredNumber(store, "iCurrDigits", 9)) values.CurrencyDigits = *digits;
}

}  // namespace

RegionalValues GetCurrencySymbolInfo(const RegistryStore& store) {
  RegionalValues values;
  TakeSystemLocale(values);
  for (const TextValue& value : TextValues) {
    const auto text = StoredText(store, value.name);
    if (text && (value.mayBeEmpty || !text->empty())) values.*value.field = *text;
  }
  TakePatterns(values, store);
  TakeMoneyNumbers(values, store);
  return values;
}

}  // namespace qel
