// Integers of 16 and 32 bits whose arithmetic and conversions raise run-time error 6 (overflow) instead of
// wrapping. Counters, indexes and totals have these types, so their limits follow by themselves.
//
// A plain integer beside a checked one takes the checked one's width: Int16(300) * 200 is an overflow.
// Two checked ones meet in the wider. A floating-point number makes the whole expression one.
#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "values/RunTimeError.h"

namespace qel {

// To the nearest whole number, ties to the even one.
inline double RoundHalfEven(double value) { return std::nearbyint(value); }

template <std::signed_integral T>
class Checked {
 public:
  using Native = T;

  constexpr Checked() = default;

  template <std::integral U>
  constexpr Checked(U from) : value(static_cast<T>(from)) {
    if constexpr (!(std::is_signed_v<U> && sizeof(U) <= sizeof(T)) && !std::is_same_v<U, bool>) {
      if (from > static_cast<std::common_type_t<U, T>>(std::numeric_limits<T>::max())) Raise(Overflow);
      if constexpr (std::is_signed_v<U>)
        if (from < static_cast<U>(std::numeric_limits<T>::min())) Raise(Overflow);
    }
  }

  // Rounds to nearest, ties to even. What is no number at all is an overflow too.
  template <std::floating_point U>
  Checked(U from) {
    const double rounded = RoundHalfEven(static_cast<double>(from));
    if (!(rounded >= std::numeric_limits<T>::min() && rounded <= std::numeric_limits<T>::max()))
      Raise(Overflow);
    value = static_cast<T>(rounded);
  }

  template <std::signed_integral U>
  constexpr Checked(Checked<U> from) : Checked(static_cast<U>(from)) {}

  constexpr operator T() const { return value; }

  Checked& operator+=(Checked other) { return *this = *this + other; }
  Checked& operator-=(Checked other) { return *this = *this - other; }
  Checked& operator++() { return *this += Checked(1); }
  Checked& operator--() { return *this -= Checked(1); }
  Checked operator-() const { return Checked(0) - *this; }

 private:
  T value = 0;
};

using Int16 = Checked<std::int16_t>;
using Int32 = Checked<std::int32_t>;

template <typename T, typename U>
using Wider = std::conditional_t<(sizeof(T) >= sizeof(U)), Checked<T>, Checked<U>>;

template <typename T, typename U>
Wider<T, U> operator+(Checked<T> a, Checked<U> b) {
  return Wider<T, U>(std::int64_t{T(a)} + U(b));
}
template <typename T, typename U>
Wider<T, U> operator-(Checked<T> a, Checked<U> b) {
  return Wider<T, U>(std::int64_t{T(a)} - U(b));
}
template <typename T, typename U>
Wider<T, U> operator*(Checked<T> a, Checked<U> b) {
  return Wider<T, U>(std::int64_t{T(a)} * U(b));
}

template <typename T, std::integral U>
Checked<T> operator+(Checked<T> a, U b) {
  return a + Checked<T>(b);
}
template <typename T, std::integral U>
Checked<T> operator-(Checked<T> a, U b) {
  return a - Checked<T>(b);
}
template <typename T, std::integral U>
Checked<T> operator*(Checked<T> a, U b) {
  return a * Checked<T>(b);
}
template <typename T, std::integral U>
Checked<T> operator+(U a, Checked<T> b) {
  return Checked<T>(a) + b;
}
template <typename T, std::integral U>
Checked<T> operator-(U a, Checked<T> b) {
  return Checked<T>(a) - b;
}
template <typename T, std::integral U>
Checked<T> operator*(U a, Checked<T> b) {
  return Checked<T>(a) * b;
}

}  // namespace qel
