// What becomes of files and of the disk that they lie on, act by act: *.files tells it.

#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>

#include "journeys/Script.h"
#include "platform/Files.h"
#include "registry/RegistryStore.h"
#include "support/FailingDisk.h"
#include "support/TemporaryFolder.h"

namespace qel {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

std::string Octal(mode_t mode) {
  char text[8];
  std::snprintf(text, sizeof text, "%o", mode);
  return text;
}

// Tells what it is asked for. Its files belong to others, and what it can do of itself is set.
class ToldDisk : public TwoVolumes {
 public:
  explicit ToldDisk(std::string folder) : folder(std::move(folder)) {}

  std::string Lacks;  // what it cannot do

  Lines TakeOperations() { return std::exchange(operations, {}); }

  int Open(const std::string& path, int flags, mode_t mode) override {
    const bool fits = (flags & O_ACCMODE) == O_RDONLY ? Can("read") : Can("make") || !(flags & O_CREAT);
    const int file = fits ? Disk::Open(path, flags, mode) : Refused(EACCES);
    names[file] = Short(path);
    static constexpr const char* Access[] = {"read", "write", "read and write"};
    std::string how = Access[flags & O_ACCMODE];
    if (flags & O_CREAT) how += (flags & O_EXCL ? ", new " : ", perhaps new ") + Octal(mode);
    Tell("open", names[file], how + (flags & O_TRUNC ? ", emptied" : ""));
    return file;
  }
  ssize_t Write(int file, const void* data, std::size_t size) override {
    return Tell("write", names[file], std::to_string(size)), Disk::Write(file, data, size);
  }
  int Sync(int file) override { return Tell("flush", names[file]), Disk::Sync(file); }
  int SetMode(int file, mode_t mode) override {
    return Tell("mode", names[file], Octal(mode)), Disk::SetMode(file, mode);
  }
  int SetOwner(int file, uid_t owner, gid_t) override {
    Tell("owner", names[file], owner == static_cast<uid_t>(-1) ? "of the group alone" : "");
    return names[file].ends_with(".tmp") ? Refused(EPERM) : 0;
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
  int Remove(const std::string& path) override {
    Tell("remove", Short(path));
    return Can("remove " + Short(path)) ? Disk::Remove(path) : Refused(EACCES);
  }
  int MakeFolder(const std::string& path, mode_t mode) override {
    return Tell("folder", Short(path), Octal(mode)), Disk::MakeFolder(path, mode);
  }

 private:
  int RenameNewAtOnce(const std::string& from, const std::string& to) override {
    return Can("rename-new") ? Disk::RenameNewAtOnce(from, to) : Refused(EINVAL);
  }
  int Link(const std::string& from, const std::string& to) override {
    return Can("link") ? Disk::Link(from, to) : Refused(EPERM);
  }
  bool Can(const std::string& what) const { return Lacks.find(what) == std::string::npos; }
  static int Refused(int systemError) { return errno = systemError, -1; }

  std::string Short(std::string path) const {
    for (const std::string& known : {folder, std::to_string(::getpid())})
      if (const auto at = path.find(known); at != std::string::npos)
        path.replace(at, known.size(), known == folder ? "~" : "PROCESS");
    return path;
  }
  void Tell(const std::string& what, const std::string& path, const std::string& how = "") {
    operations.push_back(what + " " + path + (how.empty() ? "" : " " + how));
  }

  const std::string folder;
  std::map<int, std::string> names;
  Lines operations;
};

class FileActs : public testing::TestWithParam<const char*> {
 protected:
  FileActs() { ::umask(022); }

  // "x*3" is "xxx", there and back.
  static std::string Long(const std::string& text) {
    return text.starts_with("x*") ? std::string(std::stoul(text.substr(2)), 'x') : text;
  }
  static std::string Shortened(const std::string& text) {
    if (text.size() > 80 && text.find_first_not_of('x') == std::string::npos)
      return "x*" + std::to_string(text.size());
    std::string line;
    for (const char c : text)
      if (c != '\r') line += c == '\n' ? '|' : c;
    return line;
  }

  std::string Described(const fs::directory_entry& entry, const std::string& name) const {
    if (entry.is_symlink()) return "leads to " + fs::read_symlink(entry).filename().string();
    if (entry.is_directory()) return "folder";
    if (!entry.is_regular_file()) return "pipe";
    return Octal(static_cast<mode_t>(entry.status().permissions())) + " <" + Shortened(folder.Content(name)) +
           ">";
  }

  // All that lies in the folder.
  Lines Shown() const {
    std::set<std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(folder.Path())) {
      const std::string name = entry.path().string().substr(folder.Path().size() + 1);
      all.insert(name + " " + Described(entry, name));
    }
    return {all.begin(), all.end()};
  }

  void Write(FileWriter&& writer, const std::string& text) {
    writer.Write(text);
    writer.Close();
  }

  std::string Opened(const std::string& path, const std::string& access) {
    store.Open(path, access == "read-only" ? RegistryStore::Access::ReadOnly : RegistryStore::Access::Shared);
    std::string told = "keys: " + std::to_string(store.Tree().size());
    for (const auto& file : store.TakeSetAside())
      told += ", set aside as " + file.KeptAs.substr(path.size()) + ": " + file.Why;
    return told;
  }

  std::string Done(const Act& act) {
    const std::string name = Long(act.WordOr(1, "")), other = act.WordOr(2, "");
    const std::string path = folder.Path(name), to = folder.Path(other);
    const auto mode = [&](std::size_t place) { return std::stoi(act.WordOr(place, "644"), nullptr, 8); };
    std::string text = Long(other), seen;
    for (const auto& line : act.Content) text += line + "\n";
    const std::map<std::string, std::function<void()>> acts = {
        {"folder", [&] { fs::create_directory(path); }},
        {"put", [&] { folder.Put(name, text); }},
        {"link", [&] { fs::create_symlink(other, path); }},
        {"mode", [&] { fs::permissions(path, static_cast<fs::perms>(mode(2))); }},
        {"read", [&] { seen = Shortened(ReadWholeFile(path)); }},
        {"length", [&] { seen = std::to_string(FileLength(path)); }},
        {"blocks", [&] { BlockReader reader(path); }},
        {"lines", [&] { LineReader reader(path); }},
        {"write", [&] { Write(FileWriter(path), text); }},
        {"write-new", [&] { Write(FileWriter(path, mode(3)), text); }},
        {"replace", [&] { ReplaceFile(path, text, mode(3)); }},
        {"make", [&] { CreateFile(path, text, mode(3)); }},
        {"make-folders", [&] { MakeFolders(path); }},
        {"permit-as", [&] { CopyOwnerAndMode(path, to); }},
        {"rename", [&] { RenameFile(path, to); }},
        {"rename-new", [&] { RenameToNew(path, to); }},
        {"rename-free", [&] { seen = RenameToFreeName(path, to).substr(folder.Path().size() + 1); }},
        {"open-store", [&] { seen = Opened(path, other); }},
        {"key", [&] { store.CreateKey(name); }},
        {"flush", [&] { store.Flush(); }},
        {"remove", [&] { fs::remove_all(path); }},
        {"pipe", [&] { ::mkfifo(path.c_str(), 0600); }},
        {"disk-lacks", [&] { disk.Lacks = act.Rest(); }},
        {"tell", [&] { tells = true; }},
    };
    acts.at(act.Words[0])();
    return seen;
  }

  Lines Play(const Act& act) {
    if (act.Words[0] == "show") return Shown();
    std::string result;
    try {
      result = Done(act);
    } catch (const RunTimeError& error) {
      result = "error " + std::to_string(error.Number()) + ", " + error.Description();
    }
    Lines seen = disk.TakeOperations();
    if (!tells) seen.clear();
    if (!result.empty()) seen.push_back(result);
    return seen;
  }

  const TemporaryFolder folder;
  ToldDisk disk{folder.Path()};
  const DiskInPlace inPlace{disk};
  RegistryStore store;
  bool tells = false;
};

TEST_P(FileActs, GoAsTold) {
  ExpectScript("platform/" + std::string(GetParam()) + ".files", [this](Act& act) { act.Now = Play(act); });
}

INSTANTIATE_TEST_SUITE_P(All, FileActs,
                         testing::Values("operations", "replacing", "renaming", "refusals", "stores"),
                         [](const auto& acts) { return std::string(acts.param); });

}  // namespace
}  // namespace qel
