#include "modemlog/LineClassifier.h"

#include <algorithm>
#include <bit>

#include "platform/CodePage.h"
#include "settings/Settings.h"

namespace qel {

namespace {

bool StandsAt(std::string_view line, std::size_t position, const std::string& text) {
  if (line.size() - position < text.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (UpperCase(static_cast<unsigned char>(line[position + i])) != static_cast<unsigned char>(text[i]))
      return false;
  return true;
}

// All pairs of characters whose capitals are these two.
template <typename Visit>
void ForEachSpelling(const char* capitals, Visit visit) {
  for (int first = 0; first < 256; ++first) {
    if (UpperCase(static_cast<unsigned char>(first)) != static_cast<unsigned char>(capitals[0])) continue;
    for (int second = 0; second < 256; ++second) {
      if (UpperCase(static_cast<unsigned char>(second)) != static_cast<unsigned char>(capitals[1])) continue;
      const char pair[] = {static_cast<char>(first), static_cast<char>(second)};
      visit(pair);
    }
  }
}

}  // namespace

LineClassifier::LineClassifier()
    : LineClassifier({ModemDial, ModemAnswer, ModemConnect, ModemUserDisconnect, ModemHostDisconnect,
                      ModemReads, ModemWrites}) {}

LineClassifier::LineClassifier(const std::array<std::string, 7>& texts) {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    responses[i] = {texts[i], 1u << i};
    if (texts[i].empty()) {
      always |= responses[i].lineClass;
      continue;
    }
    searched |= responses[i].lineClass;
    window = window == 0 ? texts[i].size() : std::min(window, texts[i].size());
  }
  window = std::min<std::size_t>(window, 33);  // what the offsets have bits for
  if (window < 2) return;
  for (const auto& response : responses) {
    if (response.text.empty()) continue;
    ForEachSpelling(response.text.data(), [&](const char* pair) {
      begins[PairIndex(pair)] |= static_cast<std::uint8_t>(response.lineClass);
    });
    for (std::size_t i = 0; i + 1 < window; ++i)
      ForEachSpelling(response.text.data() + i,
                      [&](const char* pair) { offsets[PairIndex(pair)] |= 1u << i; });
  }
}

unsigned LineClassifier::ClassesAt(std::string_view line, std::size_t position, unsigned candidates) const {
  unsigned classes = NoClass;
  for (const auto& response : responses)
    if ((candidates & response.lineClass) && StandsAt(line, position, response.text))
      classes |= response.lineClass;
  return classes;
}

// The pair has each of the `places` in some response string.
unsigned LineClassifier::ClassesAround(std::string_view line, std::size_t pair, std::uint32_t places) const {
  unsigned classes = NoClass;
  for (; places != 0; places &= places - 1) {
    const std::size_t begin = pair - static_cast<std::size_t>(std::countr_zero(places));
    if (const unsigned candidates = begins[PairIndex(line.data() + begin)])
      classes |= ClassesAt(line, begin, candidates);
  }
  return classes;
}

unsigned LineClassifier::ClassesOf(std::string_view line) const {
  unsigned classes = always;
  if (searched == NoClass || line.size() < window) return classes;
  if (window == 1) {
    for (std::size_t i = 0; i < line.size(); ++i) classes |= ClassesAt(line, i, searched);
    return classes;
  }
  const std::size_t stride = window - 1;
  for (std::size_t pair = window - 2; pair + 2 <= line.size(); pair += stride)
    if (const std::uint32_t places = offsets[PairIndex(line.data() + pair)])
      classes |= ClassesAround(line, pair, places);
  return classes;
}

}  // namespace qel
