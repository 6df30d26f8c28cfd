#include "platform/FormatMask.h"
#include "support/Cases.h"
#include "support/Regions.h"

namespace qel {

TEST_F(RegionTest, NumbersFillTheirMaskAndRoundHalfAwayFromZero) {
  for (const auto& [number, mask, text] : Cases<3>("platform/NumberMasks"))
    EXPECT_EQ(FormatNumber(std::stod(number), mask), text) << number << " by " << mask;
  EXPECT_EQ(FormatNumber(0.1 + 0.7, "0.0"), "0.8");
  EXPECT_EQ(FormatNumber(1e20, "#,##0"), "100,000,000,000,000,000,000");
  EXPECT_EQ(FormatNumber(1e-20, "0.00" + std::string(30, '#')), "0.00000000000000000001");
}

TEST_F(RegionTest, NumbersAreDrawnWithTheSeparatorsOfTheRegion) {
  Region = Germany();
  EXPECT_EQ(FormatNumber(1234567.891, "#,##0.00"), "1.234.567,89");
  Region.NumberThousand = "";
  EXPECT_EQ(FormatNumber(1234567.891, "#,##0.00"), "1234567,89");
}

}  // namespace qel
