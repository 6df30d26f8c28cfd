#include "core/CurrencyFormat.h"

#include <algorithm>

#include "registry/RegistryStore.h"
#include "registry/StoredRegion.h"
#include "values/FormatMask.h"
#include "values/Region.h"

namespace qel {

std::string Country, CurrencySymbol;
Int16 SymbolPrecedes, SymbolSpaced, CurrencyDigits;
std::string DateSeparator, MoneyDecimal, MoneyThousand, TimeSeparator, NumberThousand, NumberDecimal;
std::string ShortDatePattern;

namespace {

std::string Repeated(char character, Int16 count) {
  return std::string(static_cast<std::size_t>(std::max<Int16>(count, 0)), character);
}

}  // namespace

void GetCurrencySymbolInfo() {
  Region = ReadRegionalValues(Registry);
  Country = Region.Country;
  CurrencySymbol = Region.CurrencySymbol;
  SymbolPrecedes = Region.SymbolPrecedes;
  SymbolSpaced = Region.SymbolSpaced;
  CurrencyDigits = Region.CurrencyDigits;
  DateSeparator = Region.DateSeparator;
  MoneyDecimal = Region.MoneyDecimal;
  MoneyThousand = Region.MoneyThousand;
  TimeSeparator = Region.TimeSeparator;
  NumberThousand = Region.NumberThousand;
  NumberDecimal = Region.NumberDecimal;
  ShortDatePattern = Region.ShortDatePattern;
}

std::string AmountMask(Int16 digits, Int16 maxDigits) {
  const std::string decimals = Repeated('0', digits) + Repeated('#', maxDigits - std::max<Int16>(digits, 0));
  return decimals.empty() ? "#,##0" : "#,##0." + decimals;
}

std::string FormatCurrency(double amount, const std::string& symbol, Int16 symbolPrecedes,
                           Int16 spaceSeparated, Int16 digits, Int16 maxDigits) {
  const std::string text = FormatNumber(amount, AmountMask(digits, maxDigits));
  const std::string blanks = Repeated(' ', spaceSeparated);
  return symbolPrecedes == 1 ? symbol + blanks + text : text + blanks + symbol;
}

std::string MoneyText(double amount) {
  return FormatCurrency(amount, CurrencySymbol, SymbolPrecedes, SymbolSpaced, CurrencyDigits, 0);
}

}  // namespace qel
