// Another value for a while.
#pragma once

#include <utility>

namespace qel {

// Puts `other` in a place for as long as this lives; then what stood there is back.
template <typename Value>
class Meanwhile {
 public:
  Meanwhile(Value& place, std::type_identity_t<Value> other)
      : place(place), before(std::exchange(place, std::move(other))) {}
  ~Meanwhile() { std::swap(place, before); }
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

 private:
  Value& place;
  Value before;
};

}  // namespace qel
