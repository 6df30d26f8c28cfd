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

TEST(ReplaceFile, WritesTheFileBehindLinksAndKeepsItsMode) {
  const TemporaryFolder folder;
  const std::string link = folder.Path("link");
  fs::create_directory(folder.Path("real"));
  fs::create_symlink("real/log", folder.Path("near link"));
  fs::create_symlink(folder.Path("near link"), link);
  ReplaceFile(link, "new", 0600);
  EXPECT_EQ(fs::status(link).permissions(), fs::perms{0600});
  fs::permissions(link, fs::perms{0666});  // more than the umask would give
  ReplaceFile(link, "newer");
  EXPECT_EQ(folder.Content("real/log"), "newer");
  EXPECT_EQ(fs::status(folder.Path("real/log")).permissions(), fs::perms{0666});
  EXPECT_TRUE(fs::is_symlink(folder.Path("near link")) && fs::is_symlink(link));
  fs::create_symlink("circle", folder.Path("circle"));
  EXPECT_EQ(ErrorOf([&] { ReplaceFile(folder.Path("circle"), "new"); }), BadFileName);
}

TEST(RenameFile, ReplacesWithinAVolumeAndAcross) {
  const TemporaryFolder folder;
  fs::create_directory(folder.Path("far"));
  fs::create_symlink("far/log", folder.Path("link"));
  const std::string content(3 * BlockSize / 2, 'x');
  TwoVolumes disk;
  const DiskInPlace inPlace(disk);
  for (const char* target : {"near", "far/log", "link"}) {
    folder.Put("source", content);
    fs::permissions(folder.Path("source"), fs::perms{0600});
    folder.Put(target, "replaced");
    RenameFile(folder.Path("source"), folder.Path(target));
    EXPECT_EQ(folder.Content(target), content) << target;
    EXPECT_EQ(fs::status(folder.Path(target)).permissions(), fs::perms{0600}) << target;
    EXPECT_FALSE(folder.Has("source")) << target;
  }
  EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
  EXPECT_EQ(ErrorOf([&] { RenameFile(folder.Path("source"), folder.Path("near")); }), FileNotFound);
}

// Who has to undo a renaming asks no more than whether it raised.
TEST(RenameFile, RaisesOnlyWhereTheFileIsWhereItWas) {
  const TemporaryFolder folder;
  fs::create_directory(folder.Path("far"));
  TwoVolumes disk;
  const DiskInPlace inPlace(disk);
  for (void (*rename)(const std::string&, const std::string&) : {RenameFile, RenameToNew}) {
    for (const char* target : {"near", "far/log"}) {
      for (int n = 1; n == 1 || disk.Failed(); ++n) {
        folder.Put("source", "content");
        fs::remove(folder.Path(target));
        disk.FailNth(n);
        const bool raised = ErrorOf([&] { rename(folder.Path("source"), folder.Path(target)); }) != 0;
        EXPECT_EQ(folder.Has("source"), raised) << target << n;
        EXPECT_TRUE(raised || folder.Content(target) == "content") << target << n;
        EXPECT_FALSE(raised && rename == RenameToNew && folder.Has(target)) << target << n;
      }
    }
  }
}

TEST(RenameToNew, SparesWhatIsThere) {
  const TemporaryFolder folder;
  fs::create_directory(folder.Path("far"));
  TwoVolumes disk;
  const DiskInPlace inPlace(disk);
  for (const char* target : {"near", "far/log"}) {
    folder.Put(target, "there");
    folder.Put("source", "content");
    EXPECT_EQ(ErrorOf([&] { RenameToNew(folder.Path("source"), folder.Path(target)); }), FileAlreadyExists);
    EXPECT_EQ(RenameToFreeName(folder.Path("source"), folder.Path(target)), folder.Path(target) + "-2");
    EXPECT_EQ(folder.Content(target) + folder.Content(target + std::string("-2")), "therecontent");
    folder.Put("source", "content");
    EXPECT_EQ(RenameToFreeName(folder.Path("source"), folder.Path(target) + "-3"),
              folder.Path(target) + "-3");
  }
  EXPECT_EQ(ErrorOf([&] { CreateFile(folder.Path("near"), "new"); }), FileAlreadyExists);
  EXPECT_EQ(folder.Content("near"), "there");
}

}  // namespace
}  // namespace qel
