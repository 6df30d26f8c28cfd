// Between text and numbers, the lenient way and the strict way.
// Val and Str never follow the region; all else does.
#pragma once

#include <string>
#include <string_view>

namespace qel {

// The lenient value: leading blanks are skipped, then sign, digits, one "." and an exponent are read up to
// the first character that cannot continue a number ("12abc" is 12, "1 2" is 1). A text without a digit gives
// 0, a number too large the largest there is.
double Val(std::string_view text);

// A number's text with "." and a blank before it unless it is negative: " 5", "-5". Raises as NumberText.
std::string Str(double number);

// A number's text with the regional decimal symbol, up to 15 significant digits, exponent form below 1E-15
// and from 1E+15 on: "0.25", "1E+20". Raises 6 (overflow) for an infinite number.
std::string NumberText(double number);

// "1 call", "2 calls".
std::string Counted(long count, const char* noun);

// The value of a text in regional form; what follows the number is ignored, an empty text is 0. Thousand
// separators before the decimal symbol do not end the number; a decimal symbol before the first of them is no
// regional form, and the text is read as it stands.
double XVal(const std::string& text);

// Whether TextToNumber takes the text: digits with optional regional thousand separators, decimal symbol,
// sign before or behind, parentheses for negative, currency symbol, exponent, blanks around.
bool IsNumber(std::string_view text);

// Raises 13 (type mismatch) for a text that is no number, 6 (overflow) for one too large.
double TextToNumber(std::string_view text);

}  // namespace qel
