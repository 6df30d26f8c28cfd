#include <gtest/gtest.h>

#include "values/CodePage.h"

namespace qel {

TEST(CodePage, EveryCharacterGoesToUtf8AndBack) {
  std::string all;
  for (int c = 0; c < 256; ++c) all += static_cast<char>(c);
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
}

TEST(CodePage, KnowsTheCharactersThatUnicodeNumbersOtherwise) {
  EXPECT_EQ(ToUtf8("\x80 5, \x93z\x94, \x8A\x9F, caf\xE9"), "€ 5, “z”, ŠŸ, café");
}

TEST(CodePage, TellsUtf8ThatItCannotHave) {
  const struct {
    const char *utf8, *lossy;
  } cases[] = {
      {"a\u0142b", "a?b"},     {"\U0001F600!", "?!"},        {"\u0080", "?"},
      {"caf\xE9", "caf?"},     {"\xC0\xAF", "??"},           {"\xE2\x82", "??"},
      {"\xED\xA0\x80", "???"}, {"\xF4\x90\x80\x80", "????"}, {"\xE0\x80\x80x", "???x"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FromUtf8(c.utf8), std::nullopt) << c.lossy;
    EXPECT_EQ(FromUtf8Lossy(c.utf8), c.lossy);
  }
}

TEST(CodePage, LetterCaseFollowsTheAccents) {
  EXPECT_EQ(UpperCase("straße"), UpperCase("STRAßE"));
  EXPECT_EQ(UpperCase("az\xE0\xFE\x9A\x9C\x9E\xFF"), "AZ\xC0\xDE\x8A\x8C\x8E\x9F");
  const std::string caseless = "\xB5\xDF\x83\xD7\xF7@[`{\xAA\xBA";
  EXPECT_EQ(UpperCase(caseless), caseless);
  EXPECT_TRUE(EqualNoCase("caf\xE9", "CAF\xC9"));
  EXPECT_FALSE(EqualNoCase("ab", "abc"));
}

TEST(CodePage, TrimTakesBlanksAndNothingElse) {
  const struct {
    const char *text, *trimmed;
  } cases[] = {{"  a b ", "a b"}, {"   ", ""}, {"", ""}, {" \ta\xA0 ", "\ta\xA0"}};
  for (const auto& c : cases) EXPECT_EQ(Trim(c.text), c.trimmed);
  EXPECT_EQ(PadLeft(" 7 ", '0', 3) + PadLeft(" 1234", '0', 3) + PadLeft("", '0', 3), "0071234000");
}

}  // namespace qel
