#include "values/CodePage.h"

#include <algorithm>
#include <iterator>

namespace qel {

namespace {

// Characters 80 to 9F, the only ones whose number is not their Unicode one. The five undefined ones map to
// themselves.
constexpr char16_t Unicode80To9F[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
static_assert(std::size(Unicode80To9F) == 0x20);

unsigned char Byte(char character) { return static_cast<unsigned char>(character); }

// A character of 80 to FFFF.
void AppendUtf8(std::string& utf8, char32_t codePoint) {
  if (codePoint < 0x800) {
    utf8 += static_cast<char>(0xC0 | (codePoint >> 6));
  } else {
    utf8 += static_cast<char>(0xE0 | (codePoint >> 12));
    utf8 += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
  }
  utf8 += static_cast<char>(0x80 | (codePoint & 0x3F));
}

// Takes one character off the front; nothing for a byte that begins no valid one, which is taken off alone.
std::optional<char32_t> TakeUtf8(std::string_view& utf8) {
  static constexpr struct {
    unsigned char mask, lead;
    std::size_t length;
    char32_t least;  // a smaller one in this length is an overlong form
  } Forms[] = {{0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}};

  const std::string_view rest = utf8;
  utf8.remove_prefix(1);
  const unsigned char first = Byte(rest[0]);
  const auto* form = std::find_if(std::begin(Forms), std::end(Forms),
                                  [&](const auto& row) { return (first & row.mask) == row.lead; });
  if (form == std::end(Forms) || rest.size() < form->length) return std::nullopt;
  char32_t codePoint = first & static_cast<unsigned char>(~form->mask);
  for (std::size_t i = 1; i < form->length; ++i) {
    if ((Byte(rest[i]) & 0xC0) != 0x80) return std::nullopt;
    codePoint = codePoint << 6 | (Byte(rest[i]) & 0x3F);
  }
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (codePoint < form->least || codePoint > 0x10FFFF || surrogate) return std::nullopt;
  utf8.remove_prefix(form->length - 1);
  return codePoint;
}

}  // namespace

std::optional<char> FromUnicode(char32_t codePoint) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) return static_cast<char>(codePoint);
  const auto* found = std::find(std::begin(Unicode80To9F), std::end(Unicode80To9F), codePoint);
  if (found == std::end(Unicode80To9F)) return std::nullopt;
  return static_cast<char>(0x80 + (found - std::begin(Unicode80To9F)));
}

namespace {

constexpr char32_t Replacement = 0xFFFD;

// A character of 80 or above.
char32_t ToUnicode(unsigned char c, bool clean) {
  if (c >= 0xA0) return c;
  const char32_t codePoint = Unicode80To9F[c - 0x80];
  return clean && codePoint == c ? Replacement : codePoint;
}

std::string Utf8Of(std::string_view text, bool clean) {
  std::string utf8;
  utf8.reserve(text.size());
  while (!text.empty()) {
    // Most text is plain ASCII, the same in both.
    const auto* special = std::find_if(text.begin(), text.end(), [](char c) { return Byte(c) >= 0x80; });
    const auto plain = static_cast<std::size_t>(special - text.begin());
    utf8 += text.substr(0, plain);
    text.remove_prefix(plain);
    if (text.empty()) break;
    AppendUtf8(utf8, ToUnicode(Byte(text.front()), clean));
    text.remove_prefix(1);
  }
  return utf8;
}

}  // namespace

std::string ToUtf8(std::string_view text) { return Utf8Of(text, false); }
std::string ToCleanUtf8(std::string_view text) { return Utf8Of(text, true); }

std::optional<std::string> FromUtf8(std::string_view utf8) {
  std::string text;
  while (!utf8.empty()) {
    const auto codePoint = TakeUtf8(utf8);
    const auto character = codePoint ? FromUnicode(*codePoint) : std::nullopt;
    if (!character) return std::nullopt;
    text += *character;
  }
  return text;
}

std::string FromUtf8Lossy(std::string_view utf8) {
  std::string text;
  while (!utf8.empty()) {
    const auto codePoint = TakeUtf8(utf8);
    const auto character = codePoint ? FromUnicode(*codePoint) : std::nullopt;
    text += character.value_or('?');
  }
  return text;
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty())
    if (!TakeUtf8(bytes)) return false;
  return true;
}

std::string ShownPath(std::string_view path) { return IsUtf8(path) ? std::string(path) : ToCleanUtf8(path); }

std::string PathText(std::string_view path) { return IsUtf8(path) ? FromUtf8Lossy(path) : std::string(path); }

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& character : upper) character = static_cast<char>(UpperCaseTable[Byte(character)]);
  return upper;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return UpperCaseTable[Byte(x)] == UpperCaseTable[Byte(y)]; });
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string PadLeft(std::string_view text, char pad, std::size_t width) {
  const std::string_view trimmed = Trim(text);
  return std::string(width - std::min(trimmed.size(), width), pad).append(trimmed);
}

}  // namespace qel
