#include <algorithm>
#include <charconv>
#include <utility>

#include "registry/RegistryText.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr std::string_view Heading4 = "REGEDIT4";
constexpr std::string_view Heading5 = "Windows Registry Editor Version 5.00";
constexpr std::string_view Blanks = " \t";

// Pairs of bytes, of which `high` (0 or 1) is the upper one. What the code page lacks becomes "?", and so
// does a pair of surrogates. An odd byte at the end is left out.
std::string FromUtf16(std::string_view pairs, std::size_t high) {
  const auto unitAt = [&](std::size_t at) {
    return static_cast<char32_t>(static_cast<unsigned char>(pairs[at + high]) << 8 |
                                 static_cast<unsigned char>(pairs[at + 1 - high]));
  };
  std::string text;
  for (std::size_t at = 0; at + 1 < pairs.size(); at += 2) {
    const char32_t unit = unitAt(at);
    text += FromUnicode(unit).value_or('?');
    const bool isLead = unit >= 0xD800 && unit < 0xDC00;
    if (isLead && at + 3 < pairs.size() && unitAt(at + 2) >> 10 == 0xDC00 >> 10) at += 2;
  }
  return text;
}

std::string TextOfUtf16File(std::string_view pairs, std::size_t high) {
  std::string text = FromUtf16(pairs, high);
  if (pairs.size() % 2 == 0) return text;
  throw RegistryFileError(1 + static_cast<int>(std::count(text.begin(), text.end(), '\n')),
                          "half a character");
}

// The content of a file in the code page, by its byte order mark or, where it has none, by its first line.
std::string TextOfFile(std::string_view content) {
  constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
  if (content.starts_with("\xFF\xFE")) return TextOfUtf16File(content.substr(2), 1);
  if (content.starts_with("\xFE\xFF")) return TextOfUtf16File(content.substr(2), 0);
  if (content.starts_with(Utf8Mark)) return FromUtf8Lossy(content.substr(Utf8Mark.size()));
  if (content.starts_with(Heading5)) return FromUtf8Lossy(content);
  return std::string(content);
}

class Parser {
 public:
  explicit Parser(std::string_view text) : rest(text) {}

  RegistryTree Parse() {
    if (rest.empty()) return {};
    ReadHeading();
    while (!rest.empty()) ReadEntry();
    return std::move(tree);
  }

 private:
  void ReadHeading() {
    if (Take(Heading5)) {
      hasWideTexts = true;
    } else if (!Take(Heading4)) {
      Fail("neither \"" + std::string(Heading4) + "\" nor \"" + std::string(Heading5) + "\"");
    }
    EndLine();
  }

  void ReadEntry() {
    SkipBlanks();
    if (rest.starts_with('[')) {
      ReadKey();
    } else if (rest.starts_with('"') || rest.starts_with('@')) {
      ReadValue();
    }
    EndLine();
  }

  // Whether nothing but a comment stands behind the bracket.
  static bool IsKeyEnd(std::string_view bracket) {
    const std::size_t behind = bracket.find_first_not_of(Blanks, 1);
    return behind == std::string_view::npos || bracket[behind] == ';' || bracket.substr(behind) == "\r";
  }

  // Where the key ends in its line: names may hold brackets.
  static std::size_t KeyEnd(std::string_view wholeLine) {
    std::size_t end = wholeLine.find(']');
    while (end != std::string_view::npos && !IsKeyEnd(wholeLine.substr(end)))
      end = wholeLine.find(']', end + 1);
    return end;
  }

  void ReadKey() {
    const std::size_t end = KeyEnd(rest.substr(0, rest.find('\n')));
    if (end == std::string_view::npos) Fail("a key without its closing bracket");
    std::string_view path = rest.substr(1, end - 1);
    const bool isDeletion = path.starts_with('-');
    if (isDeletion) path.remove_prefix(1);
    if (!IsKeyPath(path)) Fail("not the path of a key");
    if (isDeletion) RemoveKey(tree, path);
    current = isDeletion ? nullptr : &MakeKey(tree, path);
    rest.remove_prefix(end + 1);
  }

  void ReadValue() {
    if (current == nullptr) Fail("a value that belongs to no key");
    std::string name;
    if (!Take("@")) name = ReadQuoted();
    SkipBlanks();
    if (!Take("=")) Fail("\"=\" is missing");
    SkipBlanks();
    if (Take("-")) {
      current->erase(name);
    } else {
      current->insert_or_assign(std::move(name), ReadTypedValue());
    }
  }

  RegistryValue ReadTypedValue() {
    if (rest.starts_with('"')) return {REG_SZ, ReadQuoted() + '\0'};
    if (Take("dword:")) return {REG_DWORD, DwordBytes(ReadHexNumber(8))};
    if (Take("hex:")) return {REG_BINARY, ReadHexBytes()};
    if (!Take("hex(")) Fail("a value of no known kind");
    const std::uint32_t type = ReadHexNumber(8);
    if (!Take("):")) Fail("\"):\" is missing");
    const std::string bytes = ReadHexBytes();
    const bool isText = type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
    if (!isText || !hasWideTexts) return {type, bytes};
    if (bytes.size() % 2 != 0) Fail("half a character");
    return {type, FromUtf16(bytes, 1)};
  }

  // Line ends stand in quotes as they are; quotes and backslashes have a backslash before them.
  std::string ReadQuoted() {
    constexpr std::string_view Special("\"\\\n\0", 4);
    const int firstLine = line;
    std::string text;
    rest.remove_prefix(1);
    for (;;) {
      const std::size_t length = rest.find_first_of(Special);
      if (length == std::string_view::npos)
        throw RegistryFileError(firstLine, "a text without its closing quote");
      text += rest.substr(0, length);
      const char special = rest[length];
      rest.remove_prefix(length + 1);
      if (special == '"') return text;
      if (special == '\0') Fail("a zero byte in a text");
      if (special == '\n') ++line;
      text += special == '\\' ? TakeEscaped() : special;
    }
  }

  char TakeEscaped() {
    if (!rest.starts_with('"') && !rest.starts_with('\\'))
      Fail("a backslash before neither quote nor backslash");
    const char character = rest.front();
    rest.remove_prefix(1);
    return character;
  }

  std::string ReadHexBytes() {
    std::string bytes;
    SkipContinuations();
    if (AtLineEnd()) return bytes;
    do {
      SkipContinuations();
      bytes += static_cast<char>(ReadHexNumber(2));
      SkipContinuations();
    } while (Take(","));
    return bytes;
  }

  std::uint32_t ReadHexNumber(std::size_t mostDigits) {
    const std::string_view digits = rest.substr(0, mostDigits);
    std::uint32_t number{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    if (error != std::errc()) Fail("a hexadecimal number is missing");
    rest.remove_prefix(static_cast<std::size_t>(end - digits.data()));
    return number;
  }

  void SkipContinuations() {
    SkipBlanks();
    while (Take("\\")) {
      SkipBlanks();
      if (!TakeLineEnd()) Fail("a backslash that does not end its line");
      SkipBlanks();
    }
  }

  bool AtLineEnd() const {
    return rest.empty() || rest.starts_with(';') || rest.starts_with('\n') || rest.starts_with("\r\n");
  }

  bool TakeLineEnd() {
    if (!Take("\n") && !Take("\r\n")) return false;
    ++line;
    return true;
  }

  // Up to and with the line's end; only blanks and a comment may stand before it.
  void EndLine() {
    SkipBlanks();
    if (!AtLineEnd()) Fail("unexpected text");
    if (rest.starts_with(';')) rest.remove_prefix(std::min(rest.find('\n'), rest.size()));
    TakeLineEnd();
  }

  void SkipBlanks() { rest.remove_prefix(std::min(rest.find_first_not_of(Blanks), rest.size())); }

  bool Take(std::string_view expected) {
    if (!EqualNoCase(rest.substr(0, expected.size()), expected)) return false;
    rest.remove_prefix(expected.size());
    return true;
  }

  [[noreturn]] void Fail(const std::string& why) const { throw RegistryFileError(line, why); }

  std::string_view rest;
  int line = 1;
  bool hasWideTexts = false;  // hex data of the text types is in UTF-16
  RegistryTree tree;
  RegistryValues* current = nullptr;
};

}  // namespace

RegistryFileError::RegistryFileError(int line, const std::string& why)
    : std::runtime_error("line " + std::to_string(line) + ": " + why), line(line) {}

RegistryTree ParseRegistryFile(std::string_view content) { return Parser(TextOfFile(content)).Parse(); }

}  // namespace qel
