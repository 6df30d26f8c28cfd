#include "cli/SettingsImport.h"
#include "platform/Disk.h"
#include "support/FailingDisk.h"
#include "support/FreshProgram.h"

namespace qel {

namespace {

class SettingsImport : public FreshProgram {
 protected:
  SettingsImport() {
    setenv("QEL_HOME", folder.Path().c_str(), 1);
    folder.Put("registry.reg", old);
  }
  ~SettingsImport() override { unsetenv("QEL_HOME"); }

  static std::string File(const std::string& values) {
    return "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\General]\r\n" + values;
  }

  // Whether the file is taken; what is told of it goes to `told`.
  bool Import(const std::string& name) {
    testing::internal::CaptureStderr();
    const bool taken = ImportSettings(folder.Path(name));
    told = testing::internal::GetCapturedStderr();
    return taken;
  }
  bool StoreHolds(const std::string& text) const {
    return folder.Content("registry.reg").find(text) != std::string::npos;
  }

  const std::string old = File("\"MaxServices\"=dword:00000063\r\n\"Mine\"=\"1\"\r\n");
  std::string told;
};

}  // namespace

TEST_F(SettingsImport, ARunningProgramPutsNothingBack) {
  const std::string key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\General";
  RegistryStore running;
  running.Open(folder.Path("registry.reg"), RegistryStore::Access::Shared);
  folder.Put("one.reg", File("\"MaxServices\"=dword:00000014\r\n\"New\"=\"1\"\r\n"));
  ASSERT_TRUE(Import("one.reg"));
  for (const std::string size : {"1", "2"}) {
    running.Set(key, "MaxServices", {REG_DWORD, DwordBytes(99)});  // as it was when the program started
    running.Set(key, "Mine", {REG_SZ, size + '\0'});
    running.Flush();
    EXPECT_TRUE(StoreHolds("\"MaxServices\"=dword:00000014") && StoreHolds("\"New\"=\"1\""));
    EXPECT_TRUE(StoreHolds("\"Mine\"=\"" + size + "\""));
  }
}

TEST_F(SettingsImport, EveryFailingStepLeavesTheOldOrTheNewStore) {
  folder.Put("one.reg", File("\"MaxServices\"=dword:00000014\r\n"));
  ASSERT_TRUE(Import("one.reg"));
  const std::string imported = folder.Content("registry.reg");
  FailingDisk disk;
  const DiskInPlace inPlace(disk);
  int failures = 0;
  for (int n = 1; n == 1 || disk.Failed(); ++n) {
    folder.Put("registry.reg", old);
    disk.FailNth(n);
    const bool taken = Import("one.reg");
    const std::string content = folder.Content("registry.reg");
    EXPECT_TRUE(content == imported || (content == old && !taken)) << "operation " << n;
    EXPECT_NE(told, "") << "operation " << n;
    if (!taken) ++failures;
    std::filesystem::remove(folder.Path("registry.reg.bad"));
    folder.Put("registry.reg", "damaged");
    disk.FailNth(n);
    Import("one.reg");
    EXPECT_EQ(folder.Has("registry.reg.bad"), told.find("registry.reg.bad\n") != std::string::npos)
        << "operation " << n << ": " << told;
  }
  EXPECT_GT(failures, 5);
}

}  // namespace qel
