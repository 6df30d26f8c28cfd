#include <csignal>
#include <sys/wait.h>

#include "maintenance/LogRewrite.h"
#include "maintenance/LogSwap.h"
#include "maintenance/Repair.h"
#include "support/ErrorOf.h"
#include "support/FailingDisk.h"
#include "support/FreshProgram.h"

namespace qel {
namespace {

void RunPurge() { DoPurge(DateSerial(1999, 1, 5), DateSerial(1999, 1, 5)); }
void RunOptimize() { DoOptimize(); }
void RunRepair() {
  LogRepair repair([](const std::string&, Int16) {});
  ErrorOf([&] {
    repair.FixCorruption();
    repair.CheckEntries();
  });
}

struct Tool {
  const char* name;
  void (*run)();
};
constexpr Tool Tools[] = {{"purge", RunPurge}, {"optimize", RunOptimize}, {"repair", RunRepair}};

// The program's folder on one volume and the log on the same or on another.
class FailureTest : public FreshProgram, public ::testing::WithParamInterface<const char*> {
 protected:
  FailureTest() {
    AppPath = folder.Path("app");
    SetCurrentLog(folder.Path(GetParam()) + "/", "log.txt");
  }

  std::string Log() const { return folder.Content(GetParam() + std::string("/log.txt")); }
  void Begin() {
    folder.Empty();
    for (const char* name : {"app", "far"}) std::filesystem::create_directory(folder.Path(name));
    folder.Put(GetParam() + std::string("/log.txt"), log);
    host.messages.clear();
  }
  // What the tool makes of the log when nothing goes wrong.
  std::string ResultOf(const Tool& tool) {
    Begin();
    tool.run();
    return Log();
  }
  // The log or its safety copy is whole and has its name, and the next start has the log in its place.
  void ExpectNothingLost(const std::string& result, const std::string& when) {
    const bool missing = !std::filesystem::exists(CurrentLogPath);
    EXPECT_TRUE(!missing || folder.Content("app/ModemLog.old") == log) << when;
    EXPECT_EQ(UndoInterruptedSwap(CurrentLogPath), missing) << when;
    const std::string now = Log();
    EXPECT_TRUE(now == log || (now == result && folder.Content("app/ModemLog.old") == log)) << when << now;
  }
  template <typename Work>
  static pid_t InAnotherProcess(Work work) {
    const pid_t child = fork();
    if (child != 0) return child;
    work();
    _exit(0);
  }

  const std::string log = "01-05-1999 10:00:00.00 - Reads 1\r\n01-06-1999 10:00:00.00 - Reads 2\r\n";
  TwoVolumes disk;
};

TEST_P(FailureTest, EveryFailingOperationLeavesAWholeLogAndIsTold) {
  for (const Tool& tool : Tools) {
    const std::string result = ResultOf(tool);
    for (const bool forGood : {false, true}) {
      for (int n = 1; n == 1 || disk.Failed(); ++n) {
        Begin();
        {
          const DiskInPlace inPlace(disk);
          forGood ? disk.FailFrom(n, ENOSPC) : disk.FailNth(n, ENOSPC);
          tool.run();
        }
        ExpectNothingLost(result, std::string(tool.name) + ", operation " + std::to_string(n));
        EXPECT_TRUE(tool.run == RunRepair || Log() == result || host.messages.size() == 1u) << tool.name << n;
        tool.run();
        EXPECT_EQ(Log(), result) << "the next run of " << tool.name << n;
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
    tool.run();
    const int operations = disk.Operations();
    for (int n = 1; n <= operations; ++n) {
      Begin();
      const pid_t child = InAnotherProcess([&] {
        disk.EndProcessAt(n);
        tool.run();
      });
      waitpid(child, nullptr, 0);
      disk.Mend();
      ExpectNothingLost(result, std::string(tool.name) + ", operation " + std::to_string(n));
    }
  }
}

TEST_P(FailureTest, AProcessKilledAtAThousandInstantsLosesNothing) {
  const DiskInPlace inPlace(disk);
  disk.Mend();
  const std::string result = ResultOf(Tools[1]);
  for (int instant = 0; instant < 500; ++instant) {
    Begin();
    const pid_t child = InAnotherProcess(RunOptimize);
    usleep(static_cast<useconds_t>(instant * 4));  // a run takes about a millisecond
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    ExpectNothingLost(result, "instant " + std::to_string(instant));
  }
}

INSTANTIATE_TEST_SUITE_P(Volumes, FailureTest, ::testing::Values("app", "far"));

}  // namespace
}  // namespace qel
