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

class ToldDisk : public Disk {
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
    return -1;
  }
  int Lock(int file, int operation) override {
    return Tell("lock", names[file], operation == LOCK_EX ? "and wait" : ""), Disk::Lock(file, operation);
  }
  int Close(int file) override { return Tell("close", names[file]), Disk::Close(file); }
  int Rename(const std::string& from, const std::string& to) override {
    return Tell("rename", Short(from), "to " + Short(to)), Disk::Rename(from, to);
  }
  int RenameNew(const std::string& from, const std::string& to) override {
    return Tell("rename", Short(from), "to the free " + Short(to)), Disk::RenameNew(from, to);
  }
  int MakeFolder(const std::string& path, mode_t mode) override {
    return Tell("folder", Short(path), Octal(mode)), Disk::MakeFolder(path, mode);
  }
  int Remove(const std::string& path) override { return Tell("remove", Short(path)), Disk::Remove(path); }

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
      {"a store opened", [&] { store.Open(folder.Path("qel/registry.reg"), RegistryStore::Access::Shared); }},
      {"a store flushed without a change", [&] { store.Flush(); }},
      {"a store flushed",
       [&] {
         store.CreateKey("HKEY_X");
         store.Flush();
       }},
  };
  const std::string wanted = ReadWholeFile(QEL_SOURCE_DIR "/tests/platform/DiskOperations.expected");
  ToldDisk disk(folder.Path());
  const DiskInPlace inPlace(disk);
  for (const auto& [name, work] : works) {
    disk.Transcript += std::string(name) + "\n";
    work();
  }
  EXPECT_EQ(disk.Transcript, wanted);
}

// A volume that cannot rename without looking, with or without second names.
class OldVolume : public Disk {
 public:
  bool KnowsLinks = true;

 private:
  int RenameNewAtOnce(const std::string&, const std::string&) override {
    errno = EINVAL;
    return -1;
  }
  int Link(const std::string& from, const std::string& to) override {
    errno = EPERM;
    return KnowsLinks ? Disk::Link(from, to) : -1;
  }
};

TEST(DiskOperations, NothingIsRenamedOntoAFileOnAnyVolume) {
  const TemporaryFolder folder;
  OldVolume disk;
  for (const bool links : {true, false}) {
    disk.KnowsLinks = links;
    folder.Put("from", "moved");
    folder.Put("there", "there");
    EXPECT_EQ(disk.RenameNew(folder.Path("from"), folder.Path("there")), -1);
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(folder.Content("from") + folder.Content("there"), "movedthere");
    EXPECT_EQ(disk.RenameNew(folder.Path("from"), folder.Path("free")), 0);
    EXPECT_EQ(folder.Content("free"), "moved");
    EXPECT_EQ(folder.Entries(), 2);
    folder.Empty();
    EXPECT_EQ(disk.RenameNew(folder.Path("from"), folder.Path("free")), -1);
    EXPECT_EQ(errno, ENOENT);
  }
}

}  // namespace
}  // namespace qel
