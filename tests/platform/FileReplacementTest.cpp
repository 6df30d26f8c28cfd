#include <filesystem>
#include <gtest/gtest.h>

#include "platform/Disk.h"
#include "platform/Files.h"
#include "support/ErrorOf.h"
#include "support/FailingDisk.h"
#include "support/TemporaryFolder.h"

namespace qel {
namespace {

namespace fs = std::filesystem;

class FlushOrder : public Disk {
 public:
  ssize_t Write(int file, const void* data, std::size_t size) override {
    order += "write ";
    return Disk::Write(file, data, size);
  }
  int Sync(int file) override {
    order += "flush ";
    return Disk::Sync(file);
  }
  int Rename(const std::string& from, const std::string& to) override {
    order += "rename ";
    return Disk::Rename(from, to);
  }
  std::string order;
};

TEST(ReplaceFile, KeepsTheLinkAndTheModeOfTheFileBehindIt) {
  const TemporaryFolder folder;
  fs::create_directory(folder.Path("real"));
  folder.Put("real/log", "old");
  fs::permissions(folder.Path("real/log"), fs::perms{0666});  // more than the umask would give
  fs::create_symlink("real/log", folder.Path("link"));
  fs::create_symlink(folder.Path("link"), folder.Path("link to link"));
  ReplaceFile(folder.Path("link to link"), "new");
  EXPECT_EQ(folder.Content("real/log"), "new");
  EXPECT_EQ(fs::status(folder.Path("real/log")).permissions(), fs::perms{0666});
  EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
  EXPECT_TRUE(fs::is_symlink(folder.Path("link to link")));
}

TEST(ReplaceFile, MakesTheFileBehindALinkToNothing) {
  const TemporaryFolder folder;
  fs::create_symlink("absent", folder.Path("link"));
  ReplaceFile(folder.Path("link"), "new", 0600);
  EXPECT_EQ(folder.Content("absent"), "new");
  EXPECT_EQ(fs::status(folder.Path("absent")).permissions(), fs::perms{0600});
  fs::create_symlink("circle", folder.Path("circle"));
  EXPECT_EQ(ErrorOf([&] { ReplaceFile(folder.Path("circle"), "new"); }), BadFileName);
}

TEST(ReplaceFile, SwapsOnlyWhatIsOnTheDiskAndFlushesTheSwap) {
  const TemporaryFolder folder;
  FlushOrder disk;
  const DiskInPlace inPlace(disk);
  ReplaceFile(folder.Path("file"), "new");
  EXPECT_EQ(disk.order, "write flush rename flush ");
}

TEST(RenameFile, ReplacesWithinAVolumeAndAcross) {
  const TemporaryFolder folder;
  fs::create_directory(folder.Path("far"));
  fs::create_symlink("far/log", folder.Path("link"));
  TwoVolumes disk;
  const DiskInPlace inPlace(disk);
  for (const char* target : {"near", "far/log", "link"}) {
    folder.Put("source", "content");
    fs::permissions(folder.Path("source"), fs::perms{0600});
    folder.Put(target, "replaced");
    RenameFile(folder.Path("source"), folder.Path(target));
    EXPECT_EQ(folder.Content(target), "content") << target;
    EXPECT_EQ(fs::status(folder.Path(target)).permissions(), fs::perms{0600}) << target;
    EXPECT_FALSE(folder.Has("source")) << target;
  }
  EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
  EXPECT_EQ(ErrorOf([&] { RenameFile(folder.Path("source"), folder.Path("near")); }), FileNotFound);
}

TEST(RenameFile, EveryFailingStepLeavesAWholeCopy) {
  const std::string content(3 * BlockSize / 2, 'x');
  TwoVolumes disk;
  const DiskInPlace inPlace(disk);
  for (const bool once : {true, false}) {
    for (int n = 1; n == 1 || disk.Failed(); ++n) {
      const TemporaryFolder folder;
      fs::create_directory(folder.Path("far"));
      folder.Put("source", content);
      folder.Put("far/target", "old");
      once ? disk.FailNth(n) : disk.FailFrom(n);
      const bool succeeded =
          ErrorOf([&] { RenameFile(folder.Path("source"), folder.Path("far/target")); }) == 0;
      EXPECT_EQ(succeeded, !disk.Failed()) << "operation " << n;
      EXPECT_EQ(folder.Has("source"), !succeeded && folder.Content("source") == content) << "operation " << n;
      const std::string target = folder.Content("far/target");
      EXPECT_TRUE(target == content || (target == "old" && folder.Has("source"))) << "operation " << n;
    }
  }
}

}  // namespace
}  // namespace qel
