#include <limits>
#include <utility>

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

TEST_F(RegionTest, NumbersAreReadByTheRegionWithAllThatMayStandAround) {
  RegionalValues bare = Germany();
  bare.NumberThousand = bare.CurrencySymbol = "";
  for (const auto& [region, text, wanted] : Cases<3>("platform/Numbers")) {
    Region = region == "US" ? UnitedStates() : region == "Germany" ? Germany() : bare;
    double number = 0;
    const int error = ErrorOf([&, &text = text] { number = TextToNumber(text); });
    EXPECT_EQ(error == 0 ? NumberText(number) : "error " + std::to_string(error), wanted) << text;
    EXPECT_EQ(IsNumber(text), error == 0) << text;
  }
}

}  // namespace qel
