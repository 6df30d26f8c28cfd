#include <gtest/gtest.h>
#include <thread>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "platform/Files.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace qel {

// Out of the optimizer's sight.
[[gnu::noipa]] FileStamp StampOrRaise(bool fails) {
  if (fails) Raise(FileNotFound);
  return {1, 2};
}

[[gnu::noipa]] FileStamp PassedOver(const FileStamp& before) {
  FileStamp stamp = before;
  IgnoreErrors([&] { stamp = StampOrRaise(true); });
  return stamp;
}

TEST(ErrorHandler, LeavesWhatAFailedAssignmentWouldHaveChanged) {
  EXPECT_TRUE((PassedOver({3, 4}) == FileStamp{3, 4}));
}

TEST(EndProgram, ClosesTheFilesOfItsThread) {
  const auto openFiles = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto end = [] { EXPECT_THROW(CurrentHost().EndProgram(), ProgramEnd); };
  const auto before = openFiles();
  LineReader file("/dev/null");
  std::thread(end).join();
  EXPECT_EQ(openFiles(), before + 1);
  end();
  EXPECT_EQ(openFiles(), before);
}

TEST(Surroundings, HoldForTheirScopeOnTheirThread) {
  const ScriptedHost outer;
  SetTrace("Outer", "Work");
  Display shown;
  {
    const ScriptedHost inner;
    const Meanwhile here(CurrentSurroundings().Display, &shown);
    EXPECT_EQ(&CurrentHost(), &inner);
    EXPECT_EQ(&CurrentDisplay(), &shown);
    EXPECT_EQ(CurrentSurroundings().ModuleTrace, "") << "nothing is named yet";
    std::thread([] {
      EXPECT_EQ(MsgBox({"Goes on?", "", Icon::Question, Buttons::YesNo}), Answer::Abort) << "nobody is there";
      SetTrace("Aside", "Work");
    }).join();
  }
  EXPECT_EQ(&CurrentHost(), &outer);
  EXPECT_EQ(&CurrentDisplay(), &outer);
  EXPECT_EQ(CurrentSurroundings().ModuleTrace, "Outer");
}

}  // namespace qel
