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

}  // namespace

LineClassifier::LineClassifier()
    : LineClassifier({ModemDial, ModemAnswer, ModemConnect, ModemUserDisconnect, ModemHostDisconnect,
                      ModemReads, ModemWrites}) {}

LineClassifier::LineClassifier(const std::array<std::string, 7>& texts) : places(65536) {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    responses[i] = {texts[i], 1u << i};
    if (texts[i].empty()) {
      always |= responses[i].lineClass;
      continue;
    }
    searched |= responses[i].lineClass;
    window = window == 0 ? texts[i].size() : std::min(window, texts[i].size());
  }
  window = std::min<std::size_t>(window, 9);  // eight pairs, as many as a place has bits
  for (const auto& response : responses)
    if (!response.text.empty()) NotePlaces(response.text);
}

// Every spelling of the string's first pairs, in capital and small letters.
void LineClassifier::NotePlaces(const std::string& text) {
  for (std::size_t i = 0; i + 1 < window; ++i)
    for (unsigned first = 0; first < 256; ++first) {
      if (UpperCaseTable[first] != static_cast<unsigned char>(text[i])) continue;
      for (unsigned second = 0; second < 256; ++second)
        if (UpperCaseTable[second] == static_cast<unsigned char>(text[i + 1]))
          places[first | second << 8] |= static_cast<std::uint8_t>(1u << i);
    }
}

unsigned LineClassifier::ClassesAt(std::string_view line, std::size_t position) const {
  unsigned classes = NoClass;
  for (const auto& response : responses)
    if (!response.text.empty() && StandsAt(line, position, response.text)) classes |= response.lineClass;
  return classes;
}

// Whether each pair of the window has its place in some string.
bool LineClassifier::MayBegin(const char* text) const {
  for (std::size_t i = 0; i + 1 < window; ++i)
    if (!(places[PairIndex(text + i)] >> i & 1)) return false;
  return true;
}

// Of the strings that have the pair, each where its beginning would then stand.
unsigned LineClassifier::ClassesAround(std::string_view line, std::size_t pair) const {
  unsigned classes = NoClass;
  for (unsigned rest = places[PairIndex(line.data() + pair)]; rest != 0; rest &= rest - 1) {
    const std::size_t begin = pair - static_cast<std::size_t>(std::countr_zero(rest));
    if (begin + window <= line.size() && MayBegin(line.data() + begin)) classes |= ClassesAt(line, begin);
  }
  return classes;
}

unsigned LineClassifier::ClassesOf(std::string_view line) const {
  unsigned classes = always;
  if (searched == NoClass || line.size() < window) return classes;
  if (window == 1) {
    for (std::size_t i = 0; i < line.size(); ++i) classes |= ClassesAt(line, i);
    return classes;
  }
  for (std::size_t pair = window - 2; pair + 2 <= line.size(); pair += window - 1)
    if (places[PairIndex(line.data() + pair)] != 0) classes |= ClassesAround(line, pair);
  return classes;
}

}  // namespace qel
