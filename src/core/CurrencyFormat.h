// The twelve regional values that the program keeps by name, and amounts of money as text.
#pragma once

#include <string>

#include "values/CheckedInteger.h"

namespace qel {

extern std::string Country;
extern std::string CurrencySymbol;
extern Int16 SymbolPrecedes;  // 1: the symbol stands before the amount
extern Int16 SymbolSpaced;    // blanks between symbol and amount
extern Int16 CurrencyDigits;  // decimals of an amount
extern std::string DateSeparator;
extern std::string MoneyDecimal;
extern std::string MoneyThousand;
extern std::string TimeSeparator;
extern std::string NumberThousand;
extern std::string NumberDecimal;
extern std::string ShortDatePattern;

// Reads the regional values (settings store, locale, United States) and keeps them for the run: the
// platform's own formatting follows them from then on.
void GetCurrencySymbolInfo();

// The mask of an amount with `digits` decimals always and up to `maxDigits` where there are any; a number
// below 0 is none.
std::string AmountMask(Int16 digits, Int16 maxDigits);

// `amount` by AmountMask, symbol and blanks placed as told: (1234.5, "$", 1, 0, 2, 0) is "$1,234.50".
std::string FormatCurrency(double amount, const std::string& symbol, Int16 symbolPrecedes,
                           Int16 spaceSeparated, Int16 digits, Int16 maxDigits);

// `amount` by the user's own currency settings.
std::string MoneyText(double amount);

}  // namespace qel
