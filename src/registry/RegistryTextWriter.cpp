#include <algorithm>

#include "registry/RegistryText.h"

namespace qel {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr char HexDigits[] = "0123456789abcdef";

std::string Hex(std::uint32_t number, unsigned leastDigits) {
  std::string digits;
  for (; number != 0 || digits.size() < leastDigits; number >>= 4) digits += HexDigits[number & 0xF];
  std::reverse(digits.begin(), digits.end());
  return digits;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

// Whether quotes give the bytes back: closed by the only zero, and without line ends or other control
// characters.
bool IsPlainText(std::string_view data) {
  if (!data.ends_with('\0')) return false;
  data.remove_suffix(1);
  return std::none_of(data.begin(), data.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

// The bytes, with lines broken before they are wider than 80 characters.
void AppendHex(std::string& text, std::size_t lineBegin, std::string_view data) {
  constexpr std::size_t WidestBeforeBreak = 76;
  for (std::size_t i = 0; i < data.size(); ++i) {
    text += Hex(static_cast<unsigned char>(data[i]), 2);
    if (i + 1 == data.size()) break;
    text += ',';
    if (text.size() - lineBegin < WidestBeforeBreak) continue;
    text += '\\';
    text += LineEnd;
    lineBegin = text.size();
    text += "  ";
  }
}

void AppendValue(std::string& text, const std::string& name, const RegistryValue& value) {
  const std::size_t lineBegin = text.size();
  text += name.empty() ? "@" : Quoted(name);
  text += '=';
  if (value.Type == REG_SZ && IsPlainText(value.Data)) {
    text += Quoted(std::string_view(value.Data).substr(0, value.Data.size() - 1));
  } else if (value.Type == REG_DWORD && value.Data.size() == 4) {
    text += "dword:" + Hex(DwordOf(value.Data), 8);
  } else {
    text += value.Type == REG_BINARY ? "hex:" : "hex(" + Hex(value.Type, 1) + "):";
    AppendHex(text, lineBegin, value.Data);
  }
  text += LineEnd;
}

}  // namespace

std::string WriteRegistryFile(const RegistryTree& tree) {
  std::string text = "REGEDIT4";
  text += LineEnd;
  for (const auto& [key, values] : tree) {
    text += LineEnd;
    text += '[' + key + ']';
    text += LineEnd;
    for (const auto& [name, value] : values) AppendValue(text, name, value);
  }
  return text;
}

}  // namespace qel
