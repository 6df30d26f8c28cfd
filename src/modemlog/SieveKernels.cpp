// The loops of the sieve. They are written in vectors as the compilers know them, which any machine can run:
// by its own vectors where it has them.
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "modemlog/LogLine.h"
#include "modemlog/LogSieve.h"

namespace qel {

namespace {

using Bytes [[gnu::vector_size(16)]] = signed char;

Bytes BytesAt(const char* place) {
  Bytes bytes;
  std::memcpy(&bytes, place, sizeof bytes);
  return bytes;
}

// The ten characters of a date as two numbers that overlap, which compare at once.
struct DateBytes {
  std::uint64_t First, Last;
  bool operator==(const DateBytes&) const = default;
};

DateBytes DateAt(const char* place) {
  DateBytes bytes{};
  std::memcpy(&bytes.First, place, sizeof bytes.First);
  std::memcpy(&bytes.Last, place + DateLength - sizeof bytes.Last, sizeof bytes.Last);
  return bytes;
}

// A bit for each byte of a comparison, which are 0 or -1; the lowest is that of the first byte.
struct AnyMachine {
  static std::uint32_t BitsOf(Bytes compared) {
    constexpr Bytes place = {1, 2, 4, 8, 16, 32, 64, -128, 1, 2, 4, 8, 16, 32, 64, -128};
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(compared & place);
    constexpr std::uint64_t sum = 0x0101010101010101;  // of all bytes, in the highest one
    return static_cast<std::uint32_t>(halves[0] * sum >> 56 | halves[1] * sum >> 56 << 8);
  }
};

#ifdef __SSE2__
struct Sse2 {
  static std::uint32_t BitsOf(Bytes compared) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(std::bit_cast<__m128i>(compared)));
  }
};
#endif

// Where one of the pairs begins in the block.
Bytes PairsIn(const char* block, const LogSieve::Pairs& pairs) {
  const Bytes first = BytesAt(block) | 0x20, second = BytesAt(block + 1) | 0x20;
  Bytes found{};
  for (const auto& pair : pairs) found |= (first == pair.First) & (second == pair.Second);
  return found;
}

template <typename Machine>
Passed PassBlocks(std::string_view text, const char* date, const LogSieve::Pairs& pairs) {
  constexpr std::size_t behind = DateLength;  // is looked at too
  Passed passed;
  const DateBytes wanted = DateAt(date);
  if (text.size() < behind || DateAt(text.data()) != wanted) return passed;
  for (std::size_t at = 0; at + sizeof(Bytes) + behind <= text.size(); at += sizeof(Bytes)) {
    const char* const block = text.data() + at;
    const std::uint32_t found = Machine::BitsOf(PairsIn(block, pairs));
    const std::uint32_t beforeFound = (found & (0 - found)) - 1;
    std::uint32_t feeds = Machine::BitsOf(BytesAt(block) == '\n') & beforeFound;
    for (; feeds != 0; feeds &= feeds - 1) {
      passed = {at + static_cast<std::size_t>(std::countr_zero(feeds)) + 1, passed.Lines + 1};
      if (DateAt(text.data() + passed.Bytes) != wanted) return passed;
    }
    if (found != 0) return passed;
  }
  return passed;
}

}  // namespace

std::vector<LogSieve::Kernel> LogSieve::Kernels() {
  std::vector<Kernel> kernels{PassBlocks<AnyMachine>};
#ifdef __SSE2__
  kernels.push_back(PassBlocks<Sse2>);
#endif
  return kernels;
}

}  // namespace qel
