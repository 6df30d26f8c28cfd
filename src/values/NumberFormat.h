// Numbers by the format mini-language.
#pragma once

#include <string>
#include <string_view>

namespace qel {

// Formats by a mask of "#" and "0" digit places, "," for grouping by thousands and "." for the decimal
// symbol; other characters stand for themselves ("%" does too). Works on the decimal form with 15 significant
// digits and rounds half away from zero. Separators are the regional ones. A decimal symbol is drawn wherever
// the mask has one: 5 by "#,##0.##" is "5.". Raises 6 (overflow) for an infinite number.
std::string FormatNumber(double number, std::string_view mask);

}  // namespace qel
