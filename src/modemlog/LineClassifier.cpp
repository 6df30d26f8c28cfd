#include "modemlog/LineClassifier.h"

#include <algorithm>
#include <bit>

#include "settings/Settings.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// Whether `text` stands in the line with its end at `end`.
bool EndsAt(std::string_view line, std::size_t end, const std::string& text) {
  if (end < text.size()) return false;
  const char* const from = line.data() + end - text.size();
  for (std::size_t i = text.size(); i-- > 0;)
    if (UpperCase(static_cast<unsigned char>(from[i])) != static_cast<unsigned char>(text[i])) return false;
  return true;
}

// The letters of which this is the capital; itself, unless it is a small one.
std::string SpellingsOf(char capital) {
  std::string letters;
  for (unsigned letter = 0; letter < 256; ++letter)
    if (UpperCaseTable[letter] == static_cast<unsigned char>(capital)) letters += static_cast<char>(letter);
  return letters;
}

}  // namespace

Responses ResponsesOf(const Settings& settings) {
  return {settings.ModemDial,           settings.ModemAnswer,         settings.ModemConnect,
          settings.ModemUserDisconnect, settings.ModemHostDisconnect, settings.ModemReads,
          settings.ModemWrites};
}

LineClassifier::LineClassifier(const Responses& texts) {
  for (std::size_t i = 0; i < texts.size(); ++i) {
    responses[i] = {texts[i], 1u << i};
    if (texts[i].empty()) {
      always |= responses[i].lineClass;
      continue;
    }
    window = window == 0 ? texts[i].size() : std::min(window, texts[i].size());
  }
  window = std::min<std::size_t>(window, 9);  // eight pairs, as many as a place has bits
  for (const auto& response : responses)
    if (!response.text.empty()) NotePlaces(response.text);
}

// Every spelling of the string's last pairs, in capital and small letters.
void LineClassifier::NotePlaces(const std::string& text) {
  const std::string_view end = std::string_view(text).substr(text.size() - window);
  std::string before;
  for (std::size_t i = 0; i < window; ++i) {
    const std::string letters = SpellingsOf(end[i]);
    for (const char first : before)
      for (const char second : letters)
        places[PairIndex(first, second)] |= static_cast<std::uint8_t>(1u << (i - 1));
    before = letters;
  }
}

unsigned LineClassifier::ClassesEndingAt(std::string_view line, std::size_t end) const {
  unsigned classes = NoClass;
  for (const auto& response : responses)
    if (!response.text.empty() && EndsAt(line, end, response.text)) classes |= response.lineClass;
  return classes;
}

// The places that a pair can have beside its neighbours, which have the places next to it.
unsigned LineClassifier::PlacesOf(std::string_view line, std::size_t pair) const {
  const char* const text = line.data() + pair;
  const unsigned found = places[PairIndex(text[0], text[1])];
  if (found == 0) return 0;
  const unsigned last = 1u << (window - 2);
  const unsigned behind = pair + 3 <= line.size() ? places[PairIndex(text[1], text[2])] : 0u;
  const unsigned before = pair > 0 ? places[PairIndex(text[-1], text[0])] : 0u;
  return found & (behind >> 1 | last) & (before << 1 | 1u);
}

// Of the strings that have the pair at one of the places, those that stand there.
unsigned LineClassifier::ClassesAround(std::string_view line, std::size_t pair, unsigned found) const {
  unsigned classes = NoClass;
  for (; found != 0; found &= found - 1) {
    const std::size_t end = pair - static_cast<std::size_t>(std::countr_zero(found)) + window;
    if (end <= line.size()) classes |= ClassesEndingAt(line, end);
  }
  return classes;
}

unsigned LineClassifier::ClassesOf(std::string_view line) const {
  unsigned classes = always;
  if (window == 0 || line.size() < window) return classes;
  if (window == 1) {
    for (std::size_t end = 1; end <= line.size(); ++end) classes |= ClassesEndingAt(line, end);
    return classes;
  }
  for (std::size_t pair = window - 2; pair + 2 <= line.size(); pair += window - 1)
    if (const unsigned found = PlacesOf(line, pair)) classes |= ClassesAround(line, pair, found);
  return classes;
}

}  // namespace qel
