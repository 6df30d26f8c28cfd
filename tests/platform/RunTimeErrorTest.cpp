#include <gtest/gtest.h>

#include "platform/RunTimeError.h"
#include "support/Cases.h"

namespace qel {

TEST(RunTimeError, EveryErrorOfTheSystemHasItsNumberAndItsText) {
  for (const auto& [systemError, number, text] : Cases<3>("platform/RunTimeErrors")) {
    if (!systemError.empty()) {
      EXPECT_EQ(ErrorNumberOfErrno(std::stoi(systemError)), std::stoi(number)) << systemError;
    }
    EXPECT_EQ(ErrorDescription(std::stoi(number)), text);
  }
}

}  // namespace qel
