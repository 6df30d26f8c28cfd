#include "platform/FormatMask.h"
#include "support/Regions.h"

namespace qel {
namespace {

struct Case {
  double number;
  const char *mask, *text;
};

TEST_F(RegionTest, NumbersFillTheirMask) {
  const Case cases[] = {
      {0, "#", ""},
      {999, "#,##0", "999"},
      {1234567.5, "#,##0", "1,234,568"},
      {0.5, "#,##0.00##", "0.50"},
      {0.12345, "#,##0.00##", "0.1235"},
      {5, "#,##0.####", "5."},
      {5, "000", "005"},
      {0.5, "#.00", ".50"},
      {42, "$0.00 net", "$42.00 net"},
      {1234, "00-00", "12-34"},
      {12, "0%", "12%"},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatNumber(c.number, c.mask), c.text) << c.mask;
  EXPECT_EQ(FormatNumber(1e20, "#,##0"), "100,000,000,000,000,000,000");
  EXPECT_EQ(FormatNumber(123456789012345678.0, "0"), "123456789012346000");
  EXPECT_EQ(FormatNumber(1e-20, "0.00" + std::string(30, '#')), "0.00000000000000000001");
}

TEST_F(RegionTest, NumbersRoundHalfAwayFromZeroInTheirDecimalForm) {
  const Case cases[] = {
      {2.675, "0.00", "2.68"},   {1.005, "0.00", "1.01"},
      {-1.005, "0.00", "-1.01"}, {0.5, "0", "1"},
      {1.5, "0", "2"},           {2.5, "0", "3"},
      {-0.5, "0", "-1"},         {0.05, "0", "0"},
      {0.05, "0.0", "0.1"},      {0.045, "0.0", "0.0"},
      {9.995, "0.00", "10.00"},  {999.5, "#,##0", "1,000"},
      {0.1 + 0.7, "0.0", "0.8"}, {-0.4, "0", "0"},
      {-0.001, "0.00", "0.00"},  {0.4, "#", ""},
      {99.99, "#.#", "100."},
  };
  for (const auto& c : cases)
    EXPECT_EQ(FormatNumber(c.number, c.mask), c.text) << c.number << " by " << c.mask;
}

TEST_F(RegionTest, NumbersAreDrawnWithTheSeparatorsOfTheRegion) {
  Region = Germany();
  EXPECT_EQ(FormatNumber(1234567.891, "#,##0.00"), "1.234.567,89");
  Region.NumberThousand = "";
  EXPECT_EQ(FormatNumber(1234567.891, "#,##0.00"), "1234567,89");
}

}  // namespace
}  // namespace qel
