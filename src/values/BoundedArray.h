// An array from index 0 to a last index, both told in 16 bits. An index outside raises run-time error 9. What
// was stored for it and finds no room goes along beyond its end, so that it can be stored again.
#pragma once

#include <cstddef>
#include <vector>

#include "values/CheckedInteger.h"

namespace qel {

template <typename T>
class BoundedArray {
 public:
  BoundedArray() = default;
  explicit BoundedArray(Int16 last) { Make(last); }

  // Makes the array anew, every element at its default. Raises 9 for a last index below 0.
  void Make(Int16 last) {
    if (last < 0) Raise(SubscriptOutOfRange);
    elements.assign(static_cast<std::size_t>(last) + 1, T());
    Beyond.clear();
  }

  // -1 before the array was made.
  int Last() const { return static_cast<int>(elements.size()) - 1; }

  T& operator[](int index) { return elements[Checked(index)]; }
  const T& operator[](int index) const { return elements[Checked(index)]; }

  std::vector<T> Beyond;

 private:
  std::size_t Checked(int index) const {
    if (index < 0 || index > Last()) Raise(SubscriptOutOfRange);
    return static_cast<std::size_t>(index);
  }

  std::vector<T> elements;
};

}  // namespace qel
