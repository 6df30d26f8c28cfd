#include "maintenance/ToolRuns.h"

namespace qel {
namespace {

class FailureTest : public ToolRuns {
 protected:
  // The next start has a whole log in its place, and what was there before stands somewhere.
  void ExpectNothingLost(const Tool& tool, const std::string& result, const std::string& when) {
    MendInterruptedSwap(logFile.CurrentLogPath);
    const bool saved = std::string(tool.name) == "save";  // which keeps no safety copy
    EXPECT_TRUE(Log() == log || (Log() == result && (saved || Safety() == log || Kept() == log)))
        << when << "\n"
        << Log();
  }
};

// A disk that does nothing any more is one whose program has ended, or whose power has gone.
TEST_P(FailureTest, EveryFailingOperationLeavesAWholeLogAndIsTold) {
  enum Ending { Fails, Ends, LosesPower };
  const char* const Endings[] = {" fails at ", " ends at ", " loses power at "};
  for (const Tool& tool : Tools) {
    const std::string result = ResultOf(tool);
    for (const Ending ending : {Fails, Ends, LosesPower}) {
      bool failed = true;
      for (int n = 1; failed; ++n) {
        const std::string when = tool.name + std::string(Endings[ending]) + std::to_string(n);
        Begin();
        ending == Fails ? disk.FailNth(n, ENOSPC) : disk.FailFrom(n);
        const bool succeeded = Run(tool);
        failed = disk.Failed();
        disk.Mend();
        if (ending == LosesPower) memory.FailPower();
        EXPECT_TRUE(succeeded ? Log() == result : failed) << when;
        EXPECT_TRUE(ending != Fails || Log() == log || Log() == result) << "rolled back at once, " << when;
        ExpectNothingLost(tool, result, when);
        EXPECT_TRUE(succeeded || ending != Fails || !memory.Has(tool.workingFile)) << when;
        seen = StampOf(logFile.CurrentLogPath);
        EXPECT_TRUE(Run(tool)) << "the next run after " << when;
        EXPECT_EQ(Log(), result) << "the next run after " << when;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Volumes, FailureTest, ::testing::Values("/app", "/far"));

}  // namespace
}  // namespace qel
