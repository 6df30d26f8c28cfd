// Random numbers that are the same on every machine for the same seed (splitmix64). The distributions of the
// standard library differ from one implementation to the next.
#pragma once

#include <cstdint>

namespace qel {

class Random {
 public:
  explicit Random(std::uint64_t seed) : state(seed) {}

  std::uint64_t Next() {
    state += 0x9e3779b97f4a7c15u;
    std::uint64_t z = state;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
  }

  // A whole number from `least` to `most`, both included.
  int Between(int least, int most) {
    const std::uint64_t range = static_cast<std::uint64_t>(most) - static_cast<std::uint64_t>(least) + 1;
    return least + static_cast<int>(((Next() >> 32) * range) >> 32);
  }

  // True `thousandths` times in a thousand.
  bool Chance(int thousandths) { return Between(0, 999) < thousandths; }

 private:
  std::uint64_t state;
};

}  // namespace qel
