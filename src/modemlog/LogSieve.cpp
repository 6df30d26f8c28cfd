#include "modemlog/LogSieve.h"

#include <array>
#include <cstdint>
#include <optional>

#include "modemlog/LogLine.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr std::size_t MostSampled = 65535;  // so that a count has 16 bits
constexpr unsigned SmallLetter = 0x20;      // the bit that small letters have and capitals lack

// Of pairs of characters, by both of them.
using PairCounts = std::vector<std::uint16_t>;

unsigned Folded(char character) { return static_cast<unsigned char>(character) | SmallLetter; }
std::size_t PairIndex(char first, char second) { return Folded(first) << 8 | Folded(second); }

PairCounts CountPairs(std::string_view sample) {
  PairCounts counts(0x10000);
  sample = sample.substr(0, MostSampled);
  for (std::size_t i = 1; i < sample.size(); ++i) ++counts[PairIndex(sample[i - 1], sample[i])];
  return counts;
}

// By capital: whether all its letters differ in that one bit alone.
constexpr std::array<bool, 256> IsFoldable = [] {
  std::array<bool, 256> foldable{};
  foldable.fill(true);
  for (unsigned letter = 0; letter < 256; ++letter) {
    const unsigned capital = UpperCaseTable[letter];
    if ((letter | SmallLetter) != (capital | SmallLetter)) foldable[capital] = false;
  }
  return foldable;
}();

// The rarest pair of a text; nothing where it has none that can be looked for.
std::optional<LogSieve::Pair> RarestPair(const std::string& text, const PairCounts& counts) {
  std::optional<LogSieve::Pair> rarest;
  unsigned least = 0;
  for (std::size_t i = 1; i < text.size(); ++i) {
    const char first = text[i - 1], second = text[i];
    if (!IsFoldable[static_cast<unsigned char>(first)] || !IsFoldable[static_cast<unsigned char>(second)])
      continue;
    const unsigned count = counts[PairIndex(first, second)];
    if (rarest && count >= least) continue;
    rarest = {static_cast<signed char>(Folded(first)), static_cast<signed char>(Folded(second))};
    least = count;
  }
  return rarest;
}

}  // namespace

LogSieve::LogSieve(const Responses& responses, std::string_view sample, Kernel kernel) : kernel(kernel) {
  const PairCounts counts = CountPairs(sample);
  for (std::size_t i = 0; i < responses.size(); ++i) {
    const auto pair = RarestPair(responses[i], counts);
    isUsable = isUsable && pair;
    pairs[i] = pair.value_or(Pair());
  }
}

Passed LogSieve::Pass(std::string_view text, std::string_view date) const {
  // A carriage return may belong to the end of a line, which has a shorter date then.
  if (!isUsable || date.size() != DateLength || date.back() == '\r') return {};
  return kernel(text, date.data(), pairs);
}

}  // namespace qel
