#include "values/DecimalForm.h"

#include <charconv>
#include <cmath>
#include <string_view>

#include "values/RunTimeError.h"

namespace qel {

namespace {

void DropZerosBehind(DecimalForm& form) {
  while (!form.Digits.empty() && form.Digits.back() == '0') form.Digits.pop_back();
  if (form.Digits.empty()) form = DecimalForm{};
}

// Whole numbers are the most frequent ones and need no rounding.
DecimalForm WholeForm(double number) {
  char text[20];
  const auto end = std::to_chars(text, text + sizeof text, static_cast<long long>(std::fabs(number)));
  DecimalForm form;
  form.Negative = std::signbit(number);
  form.Digits.assign(text, end.ptr);
  form.Point = static_cast<int>(form.Digits.size());
  DropZerosBehind(form);
  return form;
}

}  // namespace

DecimalForm ToDecimalForm(double number) {
  if (!std::isfinite(number)) Raise(Overflow);
  if (std::fabs(number) < 1e15 && number == std::trunc(number)) return WholeForm(number);
  char text[32];  // "d.dddddddddddddde+ddd"
  const auto end =
      std::to_chars(text, text + sizeof text, std::fabs(number), std::chars_format::scientific, 14);
  const std::string_view written(text, static_cast<std::size_t>(end.ptr - text));
  const std::size_t mark = written.find('e');

  DecimalForm form;
  form.Negative = number < 0;
  form.Digits += written.front();
  form.Digits += written.substr(2, mark - 2);
  const char* exponent = written.data() + mark + (written[mark + 1] == '+' ? 2 : 1);
  std::from_chars(exponent, end.ptr, form.Point);
  ++form.Point;
  DropZerosBehind(form);
  return form;
}

void RoundToPlaces(DecimalForm& form, int places) {
  const int keep = form.Point + places;
  if (keep >= static_cast<int>(form.Digits.size())) return;
  const bool up = keep >= 0 && form.Digits[static_cast<std::size_t>(keep)] >= '5';
  form.Digits.resize(static_cast<std::size_t>(keep > 0 ? keep : 0));
  if (up) {
    while (!form.Digits.empty() && form.Digits.back() == '9') form.Digits.pop_back();
    if (form.Digits.empty()) {
      form.Digits += '1';
      ++form.Point;
    } else {
      ++form.Digits.back();
    }
  }
  DropZerosBehind(form);
}

}  // namespace qel
