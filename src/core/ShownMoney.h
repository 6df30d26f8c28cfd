// Amounts of money as the program shows them.
#pragma once

#include <string>

#include "values/CheckedInteger.h"

namespace qel {

// `amount` with the region's symbol, blanks and decimals, and up to `maxDigits` decimals where there are any:
// (1234.5, 0) is "$1,234.50".
std::string FormatCurrency(double amount, Int16 maxDigits);

// The same without decimals of its own.
std::string MoneyText(double amount);

// A number's text with the currency's decimals always and up to `places` where there are any; empty for a
// text that is no number.
std::string Format_Dplaces(const std::string& text, Int16 places);

}  // namespace qel
