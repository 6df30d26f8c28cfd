#include <algorithm>
#include <gtest/gtest.h>

#include "platform/CodePage.h"
#include "platform/RegistryFile.h"
#include "support/Cases.h"

namespace qel {
namespace {

using namespace std::string_literals;

const std::string Root = "HKEY_CURRENT_USER";
const std::string Key = Root + "\\Software";

RegistryTree TreeWith(RegistryValues values) { return {{Root, {}}, {Key, std::move(values)}}; }

// As an editor saves it in UTF-16; each byte of `text` is one character.
std::string Utf16(const std::string& text, bool lowFirst) {
  std::string pairs = lowFirst ? "\xFF\xFE" : "\xFE\xFF";
  for (const char c : text) pairs += lowFirst ? std::string{c, '\0'} : std::string{'\0', c};
  return pairs;
}

int LineOfError(const std::string& content) {
  try {
    ParseRegistryFile(content);
  } catch (const RegistryFileError& error) {
    return error.Line();
  }
  return 0;
}

const RegistryTree EveryKind = TreeWith({{"", {REG_SZ, "\"caf\xE9\"\0"s}},
                                         {"back\\slash", {REG_DWORD, "\x01\0\0\x80"s}},
                                         {"bytes", {REG_BINARY, std::string(30, '\x5A')}},
                                         {"lines", {REG_SZ, "a\nb\0"s}},
                                         {"open", {REG_SZ, "a"}}});

TEST(RegistryFile, ReadsEveryKindOfValue) {
  const struct {
    std::string line;
    RegistryValue value;
  } cases[] = {
      {R"("name"="text")", {REG_SZ, "text\0"s}},
      {R"("name" = "C:\\Logs\\a \"b\"" ; comment)", {REG_SZ, "C:\\Logs\\a \"b\"\0"s}},
      {"\"name\"=\"two\r\nlines\"", {REG_SZ, "two\r\nlines\0"s}},
      {R"("name"="\\;]=" )", {REG_SZ, "\\;]=\0"s}},
      {R"("name"=DWORD:fF00012c)", {REG_DWORD, "\x2C\x01\0\xFF"s}},
      {R"("name"=hex:)", {REG_BINARY, ""}},
      {"\"name\"=hex:01, 2,\\\r\n  ff,\\\n\t00", {REG_BINARY, "\x01\x02\xFF\0"s}},
      {R"("name"=hex(80000001):07)", {0x80000001, "\x07"}},
  };
  for (const auto& c : cases) {
    const std::string content = "REGEDIT4\n; comment\n\n[" + Key + "]\n" + c.line + "\n";
    EXPECT_EQ(ParseRegistryFile(content), TreeWith({{"name", c.value}})) << c.line;
  }
}

TEST(RegistryFile, ReadsTheEncodingsOfVersion5) {
  const std::string content = "Windows Registry Editor Version 5.00\r\n\r\n[" + Key +
                              "]\r\n@=\"caf\xE9\"\r\n" +
                              "\"multi\"=hex(7):e9,00,ac,20,00,00,3d,d8,00,de,00,00\r\n\"b\"=hex:e9,00\r\n";
  const RegistryTree tree = TreeWith({{"", {REG_SZ, "caf\xE9\0"s}},
                                      {"multi", {REG_MULTI_SZ, "\xE9\x80\0?\0"s}},
                                      {"b", {REG_BINARY, "\xE9\0"s}}});
  EXPECT_EQ(ParseRegistryFile(Utf16(content, true)), tree);
  EXPECT_EQ(ParseRegistryFile(Utf16(content, false)), tree);
  EXPECT_EQ(ParseRegistryFile(ToUtf8(content)), tree);
  EXPECT_EQ(ParseRegistryFile("\xEF\xBB\xBF" + ToUtf8(content)), tree);
  EXPECT_EQ(LineOfError(Utf16("REGEDIT4\n", true) + "x"), 2);
}

TEST(RegistryFile, DeletesAndMergesInOrder) {
  const std::string content =
      "REGEDIT4\r\n[HKEY_X\\A]\r\n\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n[HKEY_X\\A\\B]\r\n[HKEY_X\\A B]\r\n"
      "[hkey_x\\a]\t; was [HKEY_X\\C]\r\n\"A\"=-\r\n\"B\"=\"3\"\r\n[-HKEY_X\\a\\b];[b]\r\n";
  EXPECT_EQ(ParseRegistryFile(content),
            (RegistryTree{{"HKEY_X", {}}, {"HKEY_X\\A", {{"b", {REG_SZ, "3\0"s}}}}, {"HKEY_X\\A B", {}}}));
  EXPECT_EQ(ParseRegistryFile(""), RegistryTree());
}

TEST(RegistryFile, GarbageIsRefusedWithItsLine) {
  std::string deep = "HKEY_X";
  for (int level = 0; level < 512; ++level) deep += "\\a";
  EXPECT_EQ(LineOfError("REGEDIT4\n[" + deep + "]"), 2);
  EXPECT_EQ(LineOfError("REGEDIT4\n[HKEY_X\\A\0]"s), 2);
  EXPECT_EQ(LineOfError("REGEDIT4\n[HKEY_X\\A]\n\"a\"=\"b\0\""s), 3);
  for (auto& [content, line] : Cases<2>("platform/DamagedFiles")) {
    std::ranges::replace(content, '|', '\n');
    EXPECT_EQ(LineOfError(content), std::stoi(line)) << content;
  }
}

TEST(RegistryFile, WritesWhatTheOldEditorReads) {
  EXPECT_EQ(WriteRegistryFile(EveryKind),
            "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER]\r\n\r\n[HKEY_CURRENT_USER\\Software]\r\n"
            "@=\"\\\"caf\xE9\\\"\"\r\n"
            "\"back\\\\slash\"=dword:80000001\r\n"
            "\"bytes\"=hex:5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,5a,\\\r\n"
            "  5a,5a,5a,5a,5a,5a,5a,5a\r\n"
            "\"lines\"=hex(1):61,0a,62,00\r\n"
            "\"open\"=hex(1):61\r\n");
}

TEST(RegistryFile, EveryByteAndKindComesBack) {
  RegistryTree tree;
  for (int code = 1; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const std::string path = Root + "\\" + c + "]";
    RegistryValues& values = MakeKey(tree, IsKeyPath(path) ? path : Key);
    for (std::uint32_t kind = 0; kind < 9; ++kind)
      values[c + std::to_string(kind)] = {kind, std::string(static_cast<std::size_t>(code), c) + '\0'};
  }
  EXPECT_EQ(ParseRegistryFile(WriteRegistryFile(tree)), tree);
}

TEST(RegistryFile, CutOrDamagedAnywhereItParsesOrIsRefused) {
  const std::string text = WriteRegistryFile(EveryKind);
  const std::string wide = Utf16("Windows Registry Editor Version 5.00" + text.substr(8), true);
  for (const std::string& whole : {text, wide}) {
    for (std::size_t i = 0; i < whole.size(); ++i) {
      std::string damaged = whole;
      damaged[i] = static_cast<char>(~damaged[i]);
      for (const std::string& content : {whole.substr(0, i), damaged}) {
        try {
          const RegistryTree tree = ParseRegistryFile(content);
          EXPECT_EQ(ParseRegistryFile(WriteRegistryFile(tree)), tree) << "at " << i;
        } catch (const RegistryFileError& error) {
          EXPECT_GE(error.Line(), 1);
        }
      }
    }
  }
}

}  // namespace
}  // namespace qel
