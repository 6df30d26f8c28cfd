#include <gtest/gtest.h>

#include "core/EndProgram.h"
#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "platform/Files.h"
#include "registry/RegistryStore.h"
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

TEST(EndProgram, SettingsThatCannotBeWrittenAreToldOnce) {
  const TemporaryFolder folder;
  Registry.Open(folder.Path("none/registry.reg"), RegistryStore::Access::Shared);
  Registry.CreateKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL");
  folder.Put("none", "");
  testing::internal::CaptureStderr();
  SaveRegistry();
  EXPECT_THROW(EndProgram(), ProgramEnd);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "qel: the settings could not be written: Path not found\n");
  Registry.Reset();
}

TEST(EndProgram, ClosesTheFiles) {
  const auto openFiles = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto before = openFiles();
  LineReader file("/dev/null");
  EXPECT_THROW(EndProgram(), ProgramEnd);
  EXPECT_EQ(openFiles(), before);
}

}  // namespace qel
