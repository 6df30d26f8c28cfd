// Text is single-byte Windows-1252 throughout, one byte a character, so that widths and positions count as
// told. What comes from outside in another form is converted where it is read, what goes out in UTF-8 at the
// two faces of the program; nothing between them does.
//
// File paths are the exception: they are the bytes that the operating system gave, converted only to be
// shown.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace qel {

// Ends every line of a log, a report and a message.
inline constexpr char NewLine[] = "\r\n";

// The five bytes that the code page leaves undefined become the C1 control characters of the same number.
std::string ToUtf8(std::string_view text);

// The same for what other programs read: the undefined bytes, which terminals and pages may take for
// commands, become the replacement character.
std::string ToCleanUtf8(std::string_view text);

// Nothing where the code page lacks the character.
std::optional<char> FromUnicode(char32_t codePoint);

// Nothing where `utf8` is not valid UTF-8 or holds a character that the code page lacks.
std::optional<std::string> FromUtf8(std::string_view utf8);

// As FromUtf8, with "?" for each character or stray byte that cannot be had.
std::string FromUtf8Lossy(std::string_view utf8);

bool IsUtf8(std::string_view bytes);

// A file path in UTF-8 to show: its bytes if they are that, or what they mean in Windows-1252.
std::string ShownPath(std::string_view path);

// A file path as text to show: Windows-1252 from its UTF-8, or the bytes as they are where they are no UTF-8.
std::string PathText(std::string_view path);

// The capital letter of each character by the code page, itself where it has none: "\xB5" (micro), "\xDF"
// (sharp s) and "\x83" (florin) stay.
inline constexpr std::array<unsigned char, 256> UpperCaseTable = [] {
  std::array<unsigned char, 256> table{};
  for (unsigned c = 0; c < 256; ++c) {
    const bool isSmall = (c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
    table[c] = static_cast<unsigned char>(isSmall ? c - 0x20 : c);
  }
  table[0x9A] = 0x8A;
  table[0x9C] = 0x8C;
  table[0x9E] = 0x8E;
  table[0xFF] = 0x9F;
  return table;
}();

// Capital and small letters by the code page, accented letters included. Never change the length.
constexpr unsigned char UpperCase(unsigned char character) { return UpperCaseTable[character]; }
std::string UpperCase(std::string_view text);

constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }

bool EqualNoCase(std::string_view a, std::string_view b);

// Blanks (character 32, nothing else) off both ends.
std::string_view Trim(std::string_view text);

// Trims `text` and puts `pad` before it up to `width` characters.
std::string PadLeft(std::string_view text, char pad, std::size_t width);

}  // namespace qel
