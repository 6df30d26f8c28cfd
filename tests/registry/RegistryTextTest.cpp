#include <algorithm>
#include <gtest/gtest.h>

#include "registry/RegistryText.h"
#include "support/Cases.h"
#include "support/Text.h"
#include "values/CodePage.h"

namespace qel {
namespace {

using namespace std::string_literals;

const std::string Heading5 = "Windows Registry Editor Version 5.00";

// As an editor saves it in UTF-16; each byte of `text` is one character.
std::string Utf16(const std::string& text, bool lowFirst) {
  std::string pairs = lowFirst ? "\xFF\xFE" : "\xFE\xFF";
  for (const char c : text) pairs += lowFirst ? std::string{c, '\0'} : std::string{'\0', c};
  return pairs;
}

// The file as it would be written, or what is wrong with it.
std::string Rewritten(const std::string& content) {
  try {
    return WriteRegistryFile(ParseRegistryFile(content));
  } catch (const RegistryFileError& error) {
    EXPECT_TRUE(std::string(error.what()).starts_with("line " + std::to_string(error.Line()) + ": "));
    return error.what();
  }
}

TEST(RegistryFile, IsReadAndWrittenAgainOrRefusedWithItsLine) {
  for (auto& [content, wanted] : Cases<2>("registry/RegistryTexts")) {
    std::ranges::replace(content, '~', '\0');
    const std::string written = Rewritten(WithEach(content, "|", "\n"));
    EXPECT_EQ(WithEach(written.substr(written.find('\n') + 1), "\r\n", "|"), wanted) << content;
  }
}

TEST(RegistryFile, KeysLieAtMost512Deep) {
  std::string path = "HKEY_X";
  while (std::ranges::count(path, '\\') < 511) path += "\\a";
  EXPECT_TRUE(IsKeyPath(path));
  EXPECT_FALSE(IsKeyPath(path + "\\a"));
}

TEST(RegistryTree, ANumberHasUpToFourBytesTheLowOneFirst) {
  EXPECT_EQ(DwordBytes(0x80000001), "\x01\0\0\x80"s);
  EXPECT_EQ(DwordOf("\x01\x02"), 0x0201u);
  EXPECT_EQ(DwordOf("\x01\x02\x03\x84\x05"), 0x84030201u);
}

TEST(RegistryFile, ReadsTheEncodingsOfVersion5) {
  const std::string content =
      Heading5 +
      "\r\n\r\n[HKEY_X]\r\n@=\"caf\xE9\"\r\n\"bytes\"=hex:e9,00\r\n"
      "\"expanded\"=hex(2):e9,00\r\n\"multi\"=hex(7):e9,00,ac,20,00,00,3d,d8,00,de,00,d8,41,00\r\n"
      "\"number\"=hex(b):e9,00\r\n\"text\"=hex(1):3d,d8,00,de\r\n";
  const std::string old =
      "REGEDIT4\r\n\r\n[HKEY_X]\r\n@=\"caf\xE9\"\r\n\"bytes\"=hex:e9,00\r\n"
      "\"expanded\"=hex(2):e9\r\n\"multi\"=hex(7):e9,80,00,3f,3f,41\r\n"
      "\"number\"=hex(b):e9,00\r\n\"text\"=hex(1):3f\r\n";
  for (const std::string& file :
       {Utf16(content, true), Utf16(content, false), ToUtf8(content), "\xEF\xBB\xBF" + ToUtf8(content)})
    EXPECT_EQ(Rewritten(file), old);
  EXPECT_EQ(Rewritten(Utf16("REGEDIT4\n", true) + "x"), "line 2: half a character");
}

TEST(RegistryFile, EveryByteAndKindComesBack) {
  RegistryTree tree;
  for (int code = 1; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const std::string path = "HKEY_X\\"s + c + "]";
    RegistryValues& values = MakeKey(tree, IsKeyPath(path) ? path : "HKEY_X");
    for (std::uint32_t kind = 0; kind < 9; ++kind)
      values[c + std::to_string(kind)] = {kind, std::string(static_cast<std::size_t>(code), c) + '\0'};
  }
  EXPECT_EQ(ParseRegistryFile(WriteRegistryFile(tree)), tree);
}

}  // namespace
}  // namespace qel
