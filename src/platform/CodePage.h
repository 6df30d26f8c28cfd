// Text is single-byte Windows-1252 throughout, one byte a character, so that widths and positions count as
// told. The two faces of the program convert from and to UTF-8 here; nothing between them does.
//
// File paths are the exception: they are the bytes that the operating system gave and are never converted.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qel {

// The five bytes that the code page leaves undefined become the C1 control characters of the same number.
std::string ToUtf8(std::string_view text);

// Nothing where `utf8` is not valid UTF-8 or holds a character that the code page lacks.
std::optional<std::string> FromUtf8(std::string_view utf8);

// As FromUtf8, with "?" for each character or stray byte that cannot be had.
std::string FromUtf8Lossy(std::string_view utf8);

// Capital letters by the code page, accented letters included. Never changes the length.
unsigned char UpperCase(unsigned char character);
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

bool EqualNoCase(std::string_view a, std::string_view b);

// Blanks (character 32, nothing else) off both ends.
std::string_view Trim(std::string_view text);

}  // namespace qel
