// What the disk is asked for, one line an operation, by each way of bringing something to it.

#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <sys/file.h>

#include "platform/Files.h"
#include "platform/RegistryStore.h"
#include "support/FailingDisk.h"
#include "support/TemporaryFolder.h"

namespace qel {
namespace {

class ToldDisk : public TwoVolumes {
 public:
  explicit ToldDisk(std::string folder) : folder(std::move(folder)) {}

  int Open(const std::string& path, int flags, mode_t mode) override {
    const int file = Disk::Open(path, flags, mode);
    names[file] = Short(path);
    static constexpr const char* Access[] = {"read", "write", "read and write"};
    std::string how = Access[flags & O_ACCMODE];
    if (flags & O_CREAT) how += flags & O_EXCL ? ", new " + Octal(mode) : ", perhaps new " + Octal(mode);
    if (flags & O_TRUNC) how += ", emptied";
    Tell("open", names[file], how);
    return file;
  }
  ssize_t Write(int file, const void* data, std::size_t size) override {
    Tell("write", names[file], std::to_string(size));
    return Disk::Write(file, data, size);
  }
  int Sync(int file) override { return Tell("flush", names[file]), Disk::Sync(file); }
  int SetMode(int file, mode_t mode) override {
    return Tell("mode", names[file], Octal(mode)), Disk::SetMode(file, mode);
  }
  int SetOwner(int file, uid_t owner, gid_t) override {
    Tell("owner", names[file], owner == static_cast<uid_t>(-1) ? "of the group alone" : "");
    errno = EPERM;
    return names[file].ends_with(".tmp") ? -1 : 0;
  }
  int Lock(int file, int operation) override {
    return Tell("lock", names[file], operation == LOCK_EX ? "and wait" : ""), Disk::Lock(file, operation);
  }
  int Close(int file) override { return Tell("close", names[file]), Disk::Close(file); }
  int Rename(const std::string& from, const std::string& to) override {
    Tell("rename", Short(from), "to " + Short(to));
    return AreApart(from, to) ? -1 : Disk::Rename(from, to);
  }
  int RenameNew(const std::string& from, const std::string& to) override {
    Tell("rename", Short(from), "to the free " + Short(to));
    return AreApart(from, to) ? -1 : Disk::RenameNew(from, to);
  }
  int MakeFolder(const std::string& path, mode_t mode) override {
    return Tell("folder", Short(path), Octal(mode)), Disk::MakeFolder(path, mode);
  }

  std::string Transcript;

 private:
  std::string Short(std::string path) const {
    for (const std::string& known : {folder, std::to_string(::getpid())})
      if (const auto at = path.find(known); at != std::string::npos)
        path.replace(at, known.size(), known == folder ? "~" : "PROCESS");
    return path;
  }
  static std::string Octal(mode_t mode) {
    char text[8];
    std::snprintf(text, sizeof text, "%o", mode);
    return text;
  }
  void Tell(const std::string& what, const std::string& path, const std::string& how = "") {
    Transcript += "  " + what + " " + path + (how.empty() ? "" : " " + how) + "\n";
  }

  const std::string folder;
  std::map<int, std::string> names;
};

TEST(DiskOperations, AreTheseInThisOrder) {
  const TemporaryFolder folder;
  const std::string file = folder.Path("file"), other = folder.Path("other");
  RegistryStore store;
  const std::pair<const char*, std::function<void()>> works[] = {
      {"a file replaced where there was none", [&] { ReplaceFile(file, "new", 0600); }},
      {"a file replaced", [&] { ReplaceFile(file, "newer"); }},
      {"a file made", [&] { CreateFile(other, "other", 0640); }},
      {"a file given the permissions of another", [&] { CopyOwnerAndMode(file, other); }},
      {"a file renamed over another", [&] { RenameFile(file, other); }},
      {"a file renamed to a free name", [&] { RenameToNew(other, file); }},
      {"a file written",
       [&] {
         FileWriter writer(file);
         writer.Write("text");
         writer.Close();
       }},
      {"a new file written",
       [&] {
         FileWriter writer(other, 0600);
         writer.Write("text");
         writer.Close();
       }},
      {"a file moved to another volume", [&] { RenameFile(file, folder.Path("far/file")); }},
      {"a file moved to a free name on another volume",
       [&] { RenameToNew(other, folder.Path("far/other")); }},
      {"a store opened",
       [&] { store.Open(folder.Path("config/qel/registry.reg"), RegistryStore::Access::Shared); }},
      {"a store flushed without a change", [&] { store.Flush(); }},
      {"a store flushed",
       [&] {
         store.CreateKey("HKEY_X");
         store.Flush();
       }},
  };
  const std::string wanted = ReadWholeFile(QEL_SOURCE_DIR "/tests/platform/DiskOperations.expected");
  std::filesystem::create_directory(folder.Path("far"));
  ToldDisk disk(folder.Path());
  const DiskInPlace inPlace(disk);
  for (const auto& [name, work] : works) {
    disk.Transcript += std::string(name) + "\n";
    work();
  }
  EXPECT_EQ(disk.Transcript, wanted);
}

// A volume that cannot rename without looking, has second names or none, and may keep a file where it is.
class OldVolume : public Disk {
 public:
  bool KnowsLinks = true, KeepsFiles = false;

 private:
  int RenameNewAtOnce(const std::string&, const std::string&) override { return Refused(EINVAL); }
  int Link(const std::string& from, const std::string& to) override {
    return KnowsLinks ? Disk::Link(from, to) : Refused(EPERM);
  }
  int Remove(const std::string& path) override {
    return KeepsFiles && path.ends_with("from") ? Refused(EACCES) : Disk::Remove(path);
  }
  static int Refused(int systemError) {
    errno = systemError;
    return -1;
  }
};

TEST(DiskOperations, NothingIsRenamedOntoAFileOnAnyVolume) {
  const TemporaryFolder folder;
  OldVolume disk;
  const auto rename = [&](const char* to) {
    return disk.RenameNew(folder.Path("from"), folder.Path(to)) == 0 ? 0 : errno;
  };
  for (const bool links : {true, false}) {
    disk.KnowsLinks = links;
    folder.Put("from", "moved");
    folder.Put("there", "there");
    EXPECT_EQ(rename("there"), EEXIST);
    EXPECT_EQ(folder.Content("from") + folder.Content("there"), "movedthere");
    disk.KeepsFiles = links;
    EXPECT_EQ(rename("free"), links ? EACCES : 0);
    disk.KeepsFiles = false;
    EXPECT_EQ(folder.Has("free"), !links);
    EXPECT_EQ(rename("free"), links ? 0 : EEXIST);
    EXPECT_EQ(folder.Content("free"), "moved");
    EXPECT_EQ(folder.Entries(), 2);
    folder.Empty();
  }
}

}  // namespace
}  // namespace qel
