#include "values/NumberConversion.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "values/CodePage.h"
#include "values/DecimalForm.h"
#include "values/Region.h"

namespace qel {

namespace {

bool IsSign(char c) { return c == '+' || c == '-'; }
bool IsExponentMark(char c) { return c == 'e' || c == 'E' || c == 'd' || c == 'D'; }

std::size_t DigitsAt(std::string_view text, std::size_t from) {
  const std::string_view rest = text.substr(from);
  return static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), IsDigit) - rest.begin());
}

// The length of a whole exponent ("E+10") at `from`, 0 where there is none.
std::size_t ExponentAt(std::string_view text, std::size_t from) {
  const std::string_view rest = text.substr(from);
  if (rest.empty() || !IsExponentMark(rest.front())) return 0;
  const std::string_view behind = rest.substr(1);
  const std::size_t begin = !behind.empty() && IsSign(behind.front()) ? 2 : 1;
  const std::size_t digits = DigitsAt(rest, begin);
  return digits > 0 ? begin + digits : 0;
}

// Whether a number too far from 1 for a double is too large, not too small. The mantissa is not zero.
bool IsTooLarge(std::string_view mantissa, std::string_view exponent) {
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of("123456789");
  const double magnitude = static_cast<double>(point) - static_cast<double>(first);
  double power = 0;
  for (const char c : exponent)
    if (IsDigit(c)) power = power * 10 + (c - '0');
  if (exponent.find('-') != std::string_view::npos) power = -power;
  return magnitude + power > 0;
}

// The value of digits, one "." and a whole exponent or none; infinite where it is too large, 0 where too
// small.
double ValueOf(std::string_view mantissa, std::string_view exponent) {
  std::string text(mantissa);
  if (!exponent.empty()) text.append("e").append(exponent.substr(1));
  double value{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  return IsTooLarge(mantissa, exponent) ? std::numeric_limits<double>::infinity() : 0;
}

std::string TextOf(double number, std::string_view decimalSymbol) {
  const DecimalForm form = ToDecimalForm(number);
  if (form.Digits.empty()) return "0";
  std::string text = form.Negative ? "-" : "";
  const int size = static_cast<int>(form.Digits.size());
  const int exponent = form.Point - 1;
  const char* const mark = exponent < -15 ? "E-" : exponent >= 15 ? "E+" : nullptr;
  if (mark) {
    text += form.Digits.front();
    if (size > 1) text.append(decimalSymbol).append(form.Digits, 1);
    text.append(mark).append(std::to_string(std::abs(exponent)));
  } else if (form.Point <= 0) {
    text.append("0")
        .append(decimalSymbol)
        .append(static_cast<std::size_t>(-form.Point), '0')
        .append(form.Digits);
  } else if (form.Point >= size) {
    text.append(form.Digits).append(static_cast<std::size_t>(form.Point - size), '0');
  } else {
    const auto point = static_cast<std::size_t>(form.Point);
    text.append(form.Digits, 0, point).append(decimalSymbol).append(form.Digits, point);
  }
  return text;
}

bool TakeFront(std::string_view& text, std::string_view what) {
  if (what.empty() || !text.starts_with(what)) return false;
  text.remove_prefix(what.size());
  return true;
}

bool TakeBack(std::string_view& text, std::string_view what) {
  if (what.empty() || !text.ends_with(what)) return false;
  text.remove_suffix(what.size());
  return true;
}

// Takes what may stand around the digits, each once: a sign on either side or parentheses, the currency
// symbol.
class Ornaments {
 public:
  // Leaves the digits with all that stands between them.
  std::string_view Strip(std::string_view text) {
    while (TakeOne(text, TakeFront) || TakeOpening(text)) {
    }
    while (TakeOne(text, TakeBack) || TakeClosing(text)) {
    }
    return text;
  }

  bool Negative() const { return negative; }
  bool Balanced() const { return opened == closed; }

 private:
  template <typename Take>
  bool TakeOne(std::string_view& text, Take take) {
    if (take(text, " ")) return true;
    if (!symbol && take(text, Region.CurrencySymbol)) return symbol = true;
    if (sign) return false;
    negative = take(text, "-");
    return sign = negative || take(text, "+");
  }

  bool TakeOpening(std::string_view& text) {
    if (sign || !TakeFront(text, "(")) return false;
    return opened = sign = negative = true;
  }

  bool TakeClosing(std::string_view& text) {
    if (!opened || closed) return false;
    return closed = TakeBack(text, ")");
  }

  bool sign = false, negative = false, symbol = false, opened = false, closed = false;
};

// The strict value: nothing where the text is no number, infinite where it is too large.
std::optional<double> NumberIn(std::string_view text) {
  Ornaments around;
  text = around.Strip(text);
  if (!around.Balanced()) return std::nullopt;

  std::string mantissa;
  bool fraction = false;
  bool digits = false;
  while (!text.empty()) {
    if (IsDigit(text.front())) {
      digits = true;
      mantissa += text.front();
      text.remove_prefix(1);
    } else if (!fraction && TakeFront(text, Region.NumberDecimal)) {
      fraction = true;
      mantissa += '.';
    } else if (fraction || !digits || !TakeFront(text, Region.NumberThousand)) {
      break;
    }
  }
  if (!digits || ExponentAt(text, 0) != text.size()) return std::nullopt;
  const double value = ValueOf(mantissa, text);
  return around.Negative() ? 0 - value : value;
}

}  // namespace

double Val(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const bool negative = text.starts_with('-');
  if (!text.empty() && IsSign(text.front())) text.remove_prefix(1);

  std::size_t end = DigitsAt(text, 0);
  std::size_t digits = end;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fraction = DigitsAt(text, end + 1);
    end += 1 + fraction;
    digits += fraction;
  }
  if (digits == 0) return 0;
  const double value = ValueOf(text.substr(0, end), text.substr(end, ExponentAt(text, end)));
  const double finite = std::min(value, std::numeric_limits<double>::max());
  return negative ? 0 - finite : finite;
}

std::string Str(double number) {
  std::string text = TextOf(number, ".");
  return text.front() == '-' ? text : " " + text;
}

std::string NumberText(double number) { return TextOf(number, Region.NumberDecimal); }

std::string Counted(long count, const char* noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

double XVal(const std::string& text) {
  const auto decimal = text.find(Region.NumberDecimal);
  const auto thousand = Region.NumberThousand.empty() ? std::string::npos : text.find(Region.NumberThousand);
  if (thousand != std::string::npos && decimal < thousand) return Val(text);
  std::string plain;
  for (std::size_t i = 0; i < text.size();) {
    if (i == decimal && !Region.NumberDecimal.empty()) {
      plain += ".";
      i += Region.NumberDecimal.size();
    } else if (i < decimal && !Region.NumberThousand.empty() &&
               text.compare(i, Region.NumberThousand.size(), Region.NumberThousand) == 0) {
      i += Region.NumberThousand.size();
    } else {
      plain += text[i++];
    }
  }
  return Val(plain);
}

bool IsNumber(std::string_view text) {
  const auto number = NumberIn(text);
  return number && std::isfinite(*number);
}

double TextToNumber(std::string_view text) {
  const auto number = NumberIn(text);
  if (!number) Raise(TypeMismatch);
  if (!std::isfinite(*number)) Raise(Overflow);
  return *number;
}

}  // namespace qel
