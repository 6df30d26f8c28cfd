// The loops of the sieve. They are written in vectors as the compilers know them, which any machine can run:
// by its own vectors where it has them.
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#ifdef __x86_64__
#include <immintrin.h>
#endif

#include "modemlog/LogLine.h"
#include "modemlog/LogSieve.h"

namespace qel {

namespace {

// Each machine has a vector of bytes, and gives a bit for each byte of a comparison, which are 0 or -1; the
// lowest is that of the first byte.
struct AnyMachine {
  using Bytes [[gnu::vector_size(16)]] = signed char;
  static std::uint32_t BitsOf(const Bytes& compared) {
    constexpr Bytes place = {1, 2, 4, 8, 16, 32, 64, -128, 1, 2, 4, 8, 16, 32, 64, -128};
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(compared & place);
    constexpr std::uint64_t sum = 0x0101010101010101;  // of all bytes, in the highest one
    return static_cast<std::uint32_t>(halves[0] * sum >> 56 | halves[1] * sum >> 56 << 8);
  }
};

#ifdef __x86_64__
struct Sse2 {
  using Bytes = AnyMachine::Bytes;
  static std::uint32_t BitsOf(const Bytes& compared) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(std::bit_cast<__m128i>(compared)));
  }
};

struct Avx2 {
  using Bytes [[gnu::vector_size(32)]] = signed char;
  [[gnu::target("avx2")]] static std::uint32_t BitsOf(const Bytes& compared) {
    __m256i bytes;
    std::memcpy(&bytes, &compared, sizeof bytes);
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(bytes));
  }
};
#endif

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

// Stands in the function of each machine, so that it is compiled for that.
template <typename Machine>
[[gnu::always_inline]] inline Passed PassBlocks(std::string_view text, const char* date,
                                                const LogSieve::Pairs& pairs) {
  using Bytes = typename Machine::Bytes;
  constexpr std::size_t behind = DateLength;  // the block is looked at too
  const DateBytes wanted = DateAt(date);
  Passed passed;
  if (text.size() < behind || DateAt(text.data()) != wanted) return passed;
  for (std::size_t at = 0; at + sizeof(Bytes) + behind <= text.size(); at += sizeof(Bytes)) {
    Bytes block, next;  // next: the same, one byte further on
    std::memcpy(&block, text.data() + at, sizeof block);
    std::memcpy(&next, text.data() + at + 1, sizeof next);
    const Bytes first = block | 0x20, second = next | 0x20;
    Bytes begun{};  // where one of the pairs begins
    for (const auto& pair : pairs) begun |= (first == pair.First) & (second == pair.Second);
    const std::uint32_t found = Machine::BitsOf(begun), beforeFound = (found & (0 - found)) - 1;
    std::uint32_t feeds = Machine::BitsOf(block == '\n') & beforeFound;
    for (; feeds != 0; feeds &= feeds - 1) {
      passed = {at + static_cast<std::size_t>(std::countr_zero(feeds)) + 1, passed.Lines + 1};
      if (DateAt(text.data() + passed.Bytes) != wanted) return passed;
    }
    if (found != 0) return passed;
  }
  return passed;
}

Passed PassOnAny(std::string_view text, const char* date, const LogSieve::Pairs& pairs) {
  return PassBlocks<AnyMachine>(text, date, pairs);
}

#ifdef __x86_64__
Passed PassBySse2(std::string_view text, const char* date, const LogSieve::Pairs& pairs) {
  return PassBlocks<Sse2>(text, date, pairs);
}

[[gnu::target("avx2")]] Passed PassByAvx2(std::string_view text, const char* date,
                                          const LogSieve::Pairs& pairs) {
  return PassBlocks<Avx2>(text, date, pairs);
}
#endif

}  // namespace

std::vector<LogSieve::Kernel> LogSieve::Kernels() {
  std::vector<Kernel> kernels{PassOnAny};
#ifdef __x86_64__
  kernels.push_back(PassBySse2);
  if (__builtin_cpu_supports("avx2")) kernels.push_back(PassByAvx2);
#endif
  return kernels;
}

}  // namespace qel
