#include "values/NumberFormat.h"

#include <algorithm>

#include "values/DecimalForm.h"
#include "values/Region.h"

namespace qel {

namespace {

bool IsPlace(char c) { return c == '#' || c == '0'; }

std::size_t PlacesIn(std::string_view mask) {
  return static_cast<std::size_t>(std::count_if(mask.begin(), mask.end(), IsPlace));
}

// The digit that stands `index` places from the first significant one; zeros stand on either side of those.
char DigitAt(const DecimalForm& form, int index) {
  return index >= 0 && index < static_cast<int>(form.Digits.size())
             ? form.Digits[static_cast<std::size_t>(index)]
             : '0';
}

// The digits before the decimal symbol, divided among the places from the right; the first place takes what
// is left.
void AppendWhole(std::string& text, const DecimalForm& form, std::string_view mask) {
  const auto forced = static_cast<int>(std::count(mask.begin(), mask.end(), '0'));
  const bool grouped = mask.find(',') != std::string_view::npos;
  const int count = std::max({form.Point, forced, 0});
  int left = count;  // digits not yet written
  const auto writeDownTo = [&](int rest) {
    for (; left > rest; --left) {
      if (grouped && left < count && left % 3 == 0) text += Region.NumberThousand;
      text += DigitAt(form, form.Point - left);
    }
  };
  auto places = static_cast<int>(PlacesIn(mask));
  if (places == 0) writeDownTo(0);
  for (const char c : mask) {
    if (IsPlace(c))
      writeDownTo(--places);
    else if (c != ',')
      text += c;
  }
}

// The digits behind the decimal symbol: "#" shows no zeros that end the number.
void AppendFraction(std::string& text, const DecimalForm& form, std::string_view mask) {
  const std::size_t lastZero = mask.rfind('0');
  int index = form.Point;
  for (std::size_t i = 0; i < mask.size(); ++i) {
    if (!IsPlace(mask[i])) {
      text += mask[i];
      continue;
    }
    const bool forced = lastZero != std::string_view::npos && i <= lastZero;
    if (forced || index < static_cast<int>(form.Digits.size())) text += DigitAt(form, index);
    ++index;
  }
}

}  // namespace

std::string FormatNumber(double number, std::string_view mask) {
  const std::size_t point = mask.find('.');
  const bool hasPoint = point != std::string_view::npos;
  const std::string_view whole = mask.substr(0, point);
  const std::string_view fraction = hasPoint ? mask.substr(point + 1) : std::string_view();

  DecimalForm form = ToDecimalForm(number);
  RoundToPlaces(form, static_cast<int>(PlacesIn(fraction)));
  std::string text;
  if (form.Negative) text += '-';
  AppendWhole(text, form, whole);
  if (hasPoint) {
    text += Region.NumberDecimal;
    AppendFraction(text, form, fraction);
  }
  return text;
}

}  // namespace qel
