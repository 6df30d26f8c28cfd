#include "core/ShownMoney.h"

#include <algorithm>

#include "values/NumberConversion.h"
#include "values/NumberFormat.h"
#include "values/Region.h"

namespace qel {

namespace {

std::string Repeated(char character, Int16 count) {
  return std::string(static_cast<std::size_t>(std::max<Int16>(count, 0)), character);
}

std::string AmountText(double amount, Int16 maxDigits) {
  const Int16 digits = Region.CurrencyDigits;
  const std::string decimals = Repeated('0', digits) + Repeated('#', maxDigits - digits);
  return FormatNumber(amount, decimals.empty() ? "#,##0" : "#,##0." + decimals);
}

}  // namespace

std::string FormatCurrency(double amount, Int16 maxDigits) {
  const std::string text = AmountText(amount, maxDigits);
  const std::string blanks = Repeated(' ', Region.SymbolSpaced);
  return Region.SymbolPrecedes == 1 ? Region.CurrencySymbol + blanks + text
                                    : text + blanks + Region.CurrencySymbol;
}

std::string MoneyText(double amount) { return FormatCurrency(amount, 0); }

std::string Format_Dplaces(const std::string& text, Int16 places) {
  return IsNumber(text) ? AmountText(TextToNumber(text), places) : "";
}

}  // namespace qel
