// A number as decimal digits: what every number on the screen is made from. Fifteen significant digits are
// what a double keeps of any decimal number, so 1.005 is the digits 1005 here, whatever its binary neighbour
// is.
#pragma once

#include <string>

namespace qel {

struct DecimalForm {
  bool Negative = false;  // never for zero
  std::string Digits;     // significant digits, no "0" at either end; empty for zero
  int Point = 0;  // how many digits stand before the decimal symbol: 0.05 is "5" with -1, 50 is "5" with 2
};

// Raises 6 (overflow) for an infinite number and for what is no number at all.
DecimalForm ToDecimalForm(double number);

// Rounds to `places` decimals, half away from zero.
void RoundToPlaces(DecimalForm& form, int places);

}  // namespace qel
