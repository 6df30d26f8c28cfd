#include "maintenance/ToolRuns.h"

namespace qel {
namespace {

class FailureTest : public ToolRuns {
 protected:
  // The next start has a whole log in its place, and what was there before stands somewhere.
  void ExpectNothingLost(const Tool& tool, const std::string& result, const std::string& when) {
    MendInterruptedSwap(CurrentLogPath);
    const bool saved = std::string(tool.name) == "save";  // which keeps no safety copy
    EXPECT_TRUE(Log() == log || (Log() == result && (saved || Safety() == log || Kept() == log)))
        << tool.name << ", " << when << "\n"
        << Log();
  }
};

TEST_P(FailureTest, EveryFailingOperationLeavesAWholeLogAndIsTold) {
  for (const Tool& tool : Tools) {
    const std::string result = ResultOf(tool);
    bool failed = true;
    for (int n = 1; failed; ++n) {
      const std::string when = "operation " + std::to_string(n);
      Begin();
      disk.FailNth(n, ENOSPC);
      const bool succeeded = Run(tool);
      failed = disk.Failed();
      disk.Mend();
      EXPECT_TRUE(succeeded ? Log() == result : failed) << tool.name << ", " << when;
      ExpectNothingLost(tool, result, when);
      EXPECT_TRUE(succeeded || !memory.Has(tool.workingFile)) << tool.name << ", " << when;
      seen = StampOf(CurrentLogPath);
      EXPECT_TRUE(Run(tool));
      EXPECT_EQ(Log(), result) << "the next run of " << tool.name << " after " << when;
    }
  }
}

// A disk that does nothing any more is one whose program has ended, or whose power has gone.
TEST_P(FailureTest, AProgramThatEndsAtAnyOperationLosesNothing) {
  for (const Tool& tool : Tools) {
    const std::string result = ResultOf(tool);
    for (const bool powerFails : {false, true}) {
      bool failed = true;
      for (int n = 1; failed; ++n) {
        const std::string when = (powerFails ? "power at " : "end at ") + std::to_string(n);
        Begin();
        disk.FailFrom(n);
        const bool succeeded = Run(tool);
        failed = disk.Failed();
        disk.Mend();
        if (powerFails) memory.FailPower();
        EXPECT_TRUE(!succeeded || Log() == result) << tool.name << ", " << when;
        ExpectNothingLost(tool, result, when);
        EXPECT_TRUE(Run(tool) || tool.workingFile[0] == 0) << tool.name << ", " << when;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Volumes, FailureTest, ::testing::Values("/app", "/far"));

}  // namespace
}  // namespace qel
