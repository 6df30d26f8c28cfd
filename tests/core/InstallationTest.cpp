#include <gtest/gtest.h>
#include <utility>

#include "core/Installation.h"
#include "platform/Files.h"
#include "support/FailingDisk.h"
#include "support/TemporaryFolder.h"

namespace qel {
namespace {

class InstallationTest : public ::testing::Test {
 protected:
  InstallationTest() {
    for (const char* name : {"home", "near", "far"}) MakeFolders(folder.Path(name));
    for (const char* name : {"QEL.HLP", "readme.htm"}) folder.Put(std::string("near/") + name, "near");
    for (const char* name : {"QEL.HLP", "QelTips.txt"}) folder.Put(std::string("far/") + name, "far");
  }
  void Copy() const {
    CopyMissingFiles({folder.Path("none"), folder.Path("near"), folder.Path("far")}, folder.Path("home"));
  }
  std::string Home(const std::string& name) const { return folder.Content("home/" + name); }

  TemporaryFolder folder;
};

TEST_F(InstallationTest, BringsWhatIsMissingAndKeepsWhatIsThere) {
  folder.Put("home/readme.htm", "changed");
  Copy();
  EXPECT_EQ(Home("QEL.HLP"), "near");
  EXPECT_EQ(Home("QelTips.txt"), "far");
  EXPECT_EQ(Home("readme.htm"), "changed");
  EXPECT_FALSE(folder.Has("home/exceeded.wav")) << "nowhere to be had";
}

TEST_F(InstallationTest, AFailureCostsOneFileAtMostAndALineOnStandardError) {
  const std::pair<std::string, std::string> files[] = {
      {"home/QEL.HLP", "near"}, {"home/readme.htm", "near"}, {"home/QelTips.txt", "far"}};
  FailingDisk disk;
  const DiskInPlace inPlace(disk);
  for (int n = 1; n == 1 || disk.Failed(); ++n) {
    for (const auto& file : files) std::filesystem::remove(folder.Path(file.first));
    disk.FailNth(n);
    ::testing::internal::CaptureStderr();
    Copy();
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(said.empty(), !disk.Failed()) << "operation " << n;
    const bool told =
        said.starts_with("qel: " + folder.Path("home/")) && said.find(" could not be made: ") < said.size();
    EXPECT_TRUE(said.empty() || told) << said;
    int whole = 0;
    for (const auto& [name, content] : files) {
      whole += folder.Content(name) == content;
      EXPECT_EQ(folder.Has(name), folder.Content(name) == content) << name << ", operation " << n;
    }
    EXPECT_GE(whole, 2) << "operation " << n;
  }
}

TEST_F(InstallationTest, AProgramLooksBesideItself) {
  ASSERT_EQ(InstalledFolders().size(), 2u);
  const std::string self = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  EXPECT_EQ(InstalledFolders().front(), self + "/../share/qel");
}

}  // namespace
}  // namespace qel
