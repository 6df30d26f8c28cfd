#include <gtest/gtest.h>

#include "platform/CheckedInteger.h"

namespace qel {

TEST(CheckedInteger, OverflowsInsteadOfWrapping) {
  Int16 full = 32767;
  EXPECT_EQ(full + Int32(40000), 72767) << "two widths meet in the wider";
  EXPECT_THROW(++full, RunTimeError);
  EXPECT_THROW(Int16(300) * 200, RunTimeError);
  EXPECT_THROW(Int16(32767.5), RunTimeError);
}

TEST(CheckedInteger, RoundsToTheNearestAndTiesToEven) {
  for (const auto& [number, whole] : {std::pair{2.5, 2}, {3.5, 4}, {-2.5, -2}, {2.51, 3}, {32767.4, 32767}})
    EXPECT_EQ(Int16(number), whole);
}

}  // namespace qel
