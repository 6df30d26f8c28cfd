#include <csignal>
#include <sys/wait.h>

#include "maintenance/ToolRuns.h"

namespace qel {
namespace {

class FailureTest : public ToolRuns {
 protected:
  // The next start has a whole log in its place, and what was there before stands somewhere.
  void ExpectNothingLost(const Tool& tool, const std::string& result, const std::string& when) {
    MendInterruptedSwap(CurrentLogPath);
    const std::string now = Log(), safety = folder.Content("app/ModemLog.old");
    const bool saved = std::string(tool.name) == "save";  // which keeps no safety copy
    EXPECT_TRUE(now == log || (now == result && (saved || safety == log || Kept() == log)))
        << tool.name << ", " << when << "\n"
        << now;
  }
  template <typename Work>
  static pid_t InAnotherProcess(Work work) {
    const pid_t child = fork();
    if (child != 0) return child;
    work();
    _exit(0);
  }
};

TEST_P(FailureTest, EveryFailingOperationLeavesAWholeLogAndIsTold) {
  const DiskInPlace inPlace(disk);
  for (const Tool& tool : Tools) {
    const std::string result = ResultOf(tool);
    for (const bool forGood : {false, true}) {
      bool failed = true;
      for (int n = 1; failed; ++n) {
        const std::string when = "operation " + std::to_string(n);
        Begin();
        forGood ? disk.FailFrom(n, ENOSPC) : disk.FailNth(n, ENOSPC);
        const bool succeeded = Run(tool);
        failed = disk.Failed();
        disk.Mend();
        EXPECT_TRUE(!succeeded || Log() == result) << tool.name << ", " << when;
        ExpectNothingLost(tool, result, when);
        for (const char* left : {PurgedName, OptimizedName, RepairedName})
          EXPECT_TRUE(forGood || !failed || succeeded || !folder.Has(std::string("app/") + left));
        seen = StampOf(CurrentLogPath);
        Run(tool);
        EXPECT_EQ(Log(), result) << "the next run of " << tool.name << " after " << when;
      }
    }
  }
}

TEST_P(FailureTest, AProcessThatEndsAtAnyOperationLosesNothing) {
  for (const Tool& tool : Tools) {
    const std::string result = ResultOf(tool);
    const DiskInPlace inPlace(disk);
    Begin();
    disk.FailNth(0);
    Run(tool);
    const int operations = disk.Operations();
    for (int n = 1; n <= operations; ++n) {
      Begin();
      const pid_t child = InAnotherProcess([&] {
        disk.EndProcessAt(n);
        Run(tool);
      });
      waitpid(child, nullptr, 0);
      disk.Mend();
      ExpectNothingLost(tool, result, "operation " + std::to_string(n));
    }
  }
}

TEST_P(FailureTest, AProcessKilledAtAThousandInstantsLosesNothing) {
  const DiskInPlace inPlace(disk);
  disk.Mend();
  const std::string result = ResultOf(Tools[1]);
  for (int instant = 0; instant < 500; ++instant) {
    Begin();
    const pid_t child = InAnotherProcess([this] { Optimize(); });
    usleep(static_cast<useconds_t>(instant * 4));  // a run takes about a millisecond
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    ExpectNothingLost(Tools[1], result, "instant " + std::to_string(instant));
  }
}

INSTANTIATE_TEST_SUITE_P(Volumes, FailureTest, ::testing::Values("app", "far"));

}  // namespace
}  // namespace qel
