#include <limits>
#include <utility>
#include <vector>

#include "platform/RunTimeError.h"
#include "platform/TextConversion.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/Regions.h"

namespace qel {

constexpr double Largest = std::numeric_limits<double>::max();

TEST(Val, ReadsAsFarAsANumberGoes) {
  for (const auto& [text, value] : Cases<2>("platform/Vals")) EXPECT_EQ(Val(text), std::stod(value)) << text;
  EXPECT_EQ(Val("\2405"), 0);
}

TEST(Val, KeepsToTheNumbersThatThereAre) {
  const std::string large = "1" + std::string(400, '0'), small = "0." + std::string(400, '0') + "1";
  const std::pair<std::string, double> cases[] = {
      {large, Largest}, {"1e999", Largest},   {"-1e999", -Largest}, {"1e99999999999999999999", Largest},
      {small, 0},       {"0e99999999999", 0}, {large + "e-400", 1}, {small + "e401", 1},
  };
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
}

TEST_F(RegionTest, NumbersTurnToTextWithFifteenDigits) {
  for (const auto& [number, text] : Cases<2>("platform/NumberTexts")) {
    EXPECT_EQ(NumberText(std::stod(number)), text);
    EXPECT_EQ(Str(std::stod(number)), (text[0] == '-' ? "" : " ") + text);
  }
  Region = Germany();
  EXPECT_EQ(NumberText(-0.25), "-0,25");
  EXPECT_EQ(NumberText(2.5e20), "2,5E+20");
  EXPECT_EQ(Str(-0.25), "-0.25");
  EXPECT_THROW(NumberText(std::numeric_limits<double>::infinity()), RunTimeError);
  EXPECT_THROW(Str(std::numeric_limits<double>::quiet_NaN()), RunTimeError);
}

TEST_F(RegionTest, NumbersAreReadWithAllThatMayStandAround) {
  for (const auto& [text, value] : Cases<2>("platform/Numbers")) {
    EXPECT_TRUE(IsNumber(text)) << text;
    EXPECT_EQ(TextToNumber(text), std::stod(value)) << text;
  }
}

TEST_F(RegionTest, WhatIsNoNumberIsRefused) {
  std::vector<std::pair<const char*, int>> cases = {{"1e999", Overflow}, {"-1e999", Overflow}};
  for (const char* text : {"",     " ",   ".",     "-",     "$",     "()",  "(5",  "5)",    "(-5)", "-5-",
                           "(5)-", "1 2", "1.2.3", "1.2,3", ",5",    "1e",  "e3",  "1e3.5", "True", "$5$",
                           "5 %",  "--5", "((5))", "1e+",   "\2405", "inf", "nan", "&H1F",  "0x10"})
    cases.emplace_back(text, TypeMismatch);
  for (const auto& [text, number] : cases) {
    EXPECT_FALSE(IsNumber(text)) << text;
    EXPECT_EQ(ErrorOf([&] { TextToNumber(text); }), number) << text;
  }
}

TEST_F(RegionTest, NumbersAreReadByTheRegion) {
  Region = Germany();
  EXPECT_EQ(TextToNumber("1.234,50 DM"), 1234.5);
  EXPECT_EQ(TextToNumber("1.5"), 15);
  EXPECT_FALSE(IsNumber("1,5,0"));
  EXPECT_FALSE(IsNumber("$5"));
  Region.NumberThousand = Region.CurrencySymbol = "";
  EXPECT_EQ(TextToNumber("1234,5"), 1234.5);
  EXPECT_FALSE(IsNumber("1.234"));
}

}  // namespace qel
