#include <limits>

#include "platform/RunTimeError.h"
#include "platform/TextConversion.h"
#include "support/Regions.h"

namespace qel {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();

TEST(Val, ReadsAsFarAsANumberGoes) {
  const std::string long1 = "1" + std::string(400, '0');
  const std::string small1 = "0." + std::string(400, '0') + "1";
  const struct {
    std::string text;
    double value;
  } cases[] = {
      {"", 0},
      {"12", 12},
      {"  12abc", 12},
      {"1 2", 1},
      {"-5", -5},
      {"+5", 5},
      {"- 5", 0},
      {"--5", 0},
      {".5", 0.5},
      {"-.5", -0.5},
      {"5.", 5},
      {".", 0},
      {"1.5.2", 1.5},
      {"1,5", 1},
      {"1e", 1},
      {"1e+", 1},
      {"1e3", 1000},
      {"1D-2x", 0.01},
      {"2.d1", 20},
      {".e5", 0},
      {"e5", 0},
      {"inf", 0},
      {"nan", 0},
      {"0x1F", 0},
      {"\xA0"
       "5",
       0},
      {"0.1", 0.1},
      {"1e999", Largest},
      {"-1e999", -Largest},
      {"1e-999", 0},
      {long1, Largest},
      {small1, 0},
      {"0e99999999999", 0},
      {long1 + "e-400", 1},
      {small1 + "e401", 1},
      {"1e99999999999999999999", Largest},
  };
  for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.value) << c.text;
}

TEST_F(RegionTest, NumbersTurnToTextWithFifteenDigits) {
  const struct {
    double number;
    const char *text, *german;
  } cases[] = {
      {0, "0", "0"},
      {-0.0, "0", "0"},
      {5, "5", "5"},
      {-5, "-5", "-5"},
      {0.25, "0.25", "0,25"},
      {0.1 + 0.2, "0.3", "0,3"},
      {-1234.5, "-1234.5", "-1234,5"},
      {100, "100", "100"},
      {2.0 / 3, "0.666666666666667", "0,666666666666667"},
      {123456789012345, "123456789012345", "123456789012345"},
      {999999999999999.9, "1E+15", "1E+15"},
      {1.5e20, "1.5E+20", "1,5E+20"},
      {1e-15, "0.000000000000001", "0,000000000000001"},
      {-2.5e-16, "-2.5E-16", "-2,5E-16"},
  };
  for (const auto& c : cases) {
    Region = UnitedStates();
    EXPECT_EQ(NumberText(c.number), c.text);
    Region = Germany();
    EXPECT_EQ(NumberText(c.number), c.german);
    EXPECT_EQ(Str(c.number), std::string(*c.text == '-' ? 0 : 1, ' ') + c.text);
  }
  EXPECT_THROW(NumberText(std::numeric_limits<double>::infinity()), RunTimeError);
  EXPECT_THROW(Str(std::numeric_limits<double>::quiet_NaN()), RunTimeError);
}

TEST_F(RegionTest, NumbersAreReadWithAllThatMayStandAround) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"1,234.50", 1234.5},
      {"1,2,3", 123},
      {"  7 ", 7},
      {".5", 0.5},
      {"5.", 5},
      {"-5", -5},
      {"5-", -5},
      {"+5", 5},
      {"5 +", 5},
      {"(5)", -5},
      {"$5", 5},
      {"-$5", -5},
      {"$-5", -5},
      {"($5)", -5},
      {"$ (5.25)", -5.25},
      {"5 $", 5},
      {"1e3", 1000},
      {"1E-3", 0.001},
      {"1d3", 1000},
      {"1,000e+2", 100000},
      {"0", 0},
      {"-0", 0},
      {"0.0000", 0},
      {"1e-999", 0},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(IsNumber(c.text)) << c.text;
    EXPECT_EQ(TextToNumber(c.text), c.value) << c.text;
  }
}

TEST_F(RegionTest, WhatIsNoNumberIsRefused) {
  const char* const cases[] = {"",
                               " ",
                               ".",
                               "-",
                               "$",
                               "()",
                               "(5",
                               "5)",
                               "(-5)",
                               "-5-",
                               "(5)-",
                               "1 2",
                               "1.2.3",
                               "1.2,3",
                               ",5",
                               "1e",
                               "e3",
                               "1e3.5",
                               "True",
                               "5x",
                               "$5$",
                               "_1",
                               "5 %",
                               "--5",
                               "+-5",
                               "((5))",
                               "1e+",
                               "\xA0"
                               "5",
                               "inf",
                               "nan",
                               "&H1F",
                               "0x10"};
  for (const char* text : cases) {
    EXPECT_FALSE(IsNumber(text)) << text;
    try {
      TextToNumber(text);
      ADD_FAILURE() << text;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), TypeMismatch) << text;
    }
  }
}

TEST_F(RegionTest, ANumberTooLargeIsAnOverflow) {
  EXPECT_FALSE(IsNumber("1e999"));
  try {
    TextToNumber("-1e999");
    ADD_FAILURE();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), Overflow);
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

}  // namespace
}  // namespace qel
