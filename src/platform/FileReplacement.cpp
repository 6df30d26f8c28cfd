#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

#include "platform/Disk.h"
#include "platform/Files.h"
#include "platform/SymbolicLinks.h"

namespace qel {

namespace {

constexpr mode_t PermissionBits = 07777;

// A change of the owner may take permissions away, so these come last.
void GiveOwnerAndMode(DiskFile& file, const struct stat& status) {
  file.TakeOwner(status.st_uid, status.st_gid);
  file.SetMode(status.st_mode & PermissionBits);
}

// Of the temporary files beside a target: "registry.reg.1234-1.tmp", with the number of the process.
constexpr std::string_view TemporaryEnd = ".tmp";

std::string TemporaryBegin(const std::string& target) { return target + "."; }

// Whether the name is that of a temporary file whose process has ended.
bool IsStray(std::string_view name, std::string_view begin) {
  if (!name.starts_with(begin) || !name.ends_with(TemporaryEnd)) return false;
  const std::string_view numbers =
      name.substr(begin.size(), name.size() - begin.size() - TemporaryEnd.size());
  pid_t process = 0;
  int number = 0;
  const char* const end = numbers.data() + numbers.size();
  const auto first = std::from_chars(numbers.data(), end, process);
  if (first.ec != std::errc() || first.ptr == end || *first.ptr != '-') return false;
  const auto second = std::from_chars(first.ptr + 1, end, number);
  if (second.ec != std::errc() || second.ptr != end || process <= 0 || number <= 0) return false;
  return ::kill(process, 0) < 0 && errno == ESRCH;
}

// A file that grows beside its target and takes its place at the end. What is not finished leaves no trace.
class Replacement {
 public:
  Replacement(const std::string& target, mode_t newMode) : target(target) { OpenBeside(newMode); }
  ~Replacement() {
    if (!finished) CurrentDisk().Remove(temporary);
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  void TakeOwnerAndMode(const struct stat& status) { GiveOwnerAndMode(file, status); }
  void Write(std::string_view text) { file.Write(text); }
  void Finish() { FinishBy(&Disk::Rename); }
  void FinishAsNew() { FinishBy(&Disk::RenameNew); }

 private:
  // Under a name of its own: a process of the same number may have left a file behind when it crashed.
  void OpenBeside(mode_t mode) {
    constexpr int MostLeftBehind = 100;
    for (int number = 1;; ++number) {
      temporary = TemporaryBegin(target) + std::to_string(getpid()) + "-" + std::to_string(number);
      temporary += TemporaryEnd;
      try {
        file.Open(temporary, O_WRONLY | O_CREAT | O_EXCL, mode);
        return file.NameInErrors(target);
      } catch (const RunTimeError& error) {
        if (error.SystemError() != EEXIST || number == MostLeftBehind)
          RaiseDiskError(error.SystemError(), target);
      }
    }
  }

  void FinishBy(int (Disk::*rename)(const std::string&, const std::string&)) {
    file.Sync();
    file.Close();
    if ((CurrentDisk().*rename)(temporary, target) < 0) RaiseDiskError(errno, target);
    finished = true;
  }

  std::string target, temporary;
  DiskFile file;
  bool finished = false;
};

void WriteThrough(const std::string& path, std::string_view content) {
  FileWriter writer(path);
  writer.Write(content);
  writer.Close();
}

struct stat StatusOf(const std::string& path) {
  struct stat status {};
  if (!FindStatus(path, status)) RaiseDiskError(ENOENT, path);
  return status;
}

template <class Target>
void CopyInto(Target& target, const std::string& from) {
  BlockReader reader(from);
  for (auto block = reader.Next(); !block.empty(); block = reader.Next()) target.Write(block);
  reader.Close();
}

void MoveAcrossVolumes(const std::string& from, const std::string& to) {
  const struct stat status = StatusOf(from);
  Replacement replacement(to, status.st_mode & PermissionBits);
  replacement.TakeOwnerAndMode(status);
  CopyInto(replacement, from);
  replacement.Finish();
  FlushFolder(FolderOf(to));
  RemoveFile(from);
}

void MoveAcrossVolumesToNew(const std::string& from, const std::string& to) {
  const struct stat status = StatusOf(from);
  DiskFile copy;
  copy.Open(to, O_WRONLY | O_CREAT | O_EXCL, status.st_mode & PermissionBits);
  try {
    GiveOwnerAndMode(copy, status);
    CopyInto(copy, from);
    copy.Sync();
    copy.Close();
    FlushFolder(FolderOf(to));
    RemoveFile(from);
  } catch (const RunTimeError&) {
    CurrentDisk().Remove(to);
    throw;
  }
}

}  // namespace

void ReplaceFile(const std::string& path, std::string_view content, int newMode) {
  struct stat status {};
  const bool exists = FindStatus(path, status);
  if (exists && !S_ISREG(status.st_mode)) return WriteThrough(path, content);
  const std::string target = BehindLinks(path);
  Replacement replacement(target, exists ? status.st_mode & PermissionBits : static_cast<mode_t>(newMode));
  if (exists) replacement.TakeOwnerAndMode(status);
  replacement.Write(content);
  replacement.Finish();
  FlushFolder(FolderOf(target));
}

void RemoveStrayTemporaries(const std::string& path) {
  try {
    const std::string target = BehindLinks(path), folder = FolderOf(target);
    const std::string begin = TemporaryBegin(target.substr(target.rfind(PathSeparator) + 1));
    std::vector<std::string> names;
    if (CurrentDisk().List(folder, names) < 0) return;
    for (const std::string& name : names)
      if (IsStray(name, begin)) CurrentDisk().Remove(folder + PathSeparator + name);
  } catch (const RunTimeError&) {
  }
}

void CreateFile(const std::string& path, std::string_view content, int newMode) {
  const std::string target = BehindLinks(path);
  Replacement replacement(target, static_cast<mode_t>(newMode));
  replacement.Write(content);
  replacement.FinishAsNew();
  FlushFolder(FolderOf(target));
}

void CopyOwnerAndMode(const std::string& from, const std::string& to) {
  const struct stat status = StatusOf(from);
  DiskFile file;
  file.Open(to, O_RDONLY);
  GiveOwnerAndMode(file, status);
  file.Close();
}

void RenameFile(const std::string& from, const std::string& to) {
  const std::string source = BehindLinks(from);
  const std::string target = BehindLinks(to);
  if (CurrentDisk().Rename(source, target) == 0) return;
  const int systemError = errno;
  if (systemError == EXDEV) return MoveAcrossVolumes(source, target);
  RaiseDiskError(systemError, PathExists(source) ? to : from);
}

void RenameToNew(const std::string& from, const std::string& to) {
  if (CurrentDisk().RenameNew(from, to) == 0) return;
  const int systemError = errno;
  if (systemError == EXDEV) return MoveAcrossVolumesToNew(from, to);
  RaiseDiskError(systemError, PathExists(from) ? to : from);
}

std::string RenameToFreeName(const std::string& from, const std::string& wanted) {
  constexpr int MostTaken = 1000;
  for (int number = 1;; ++number) {
    const std::string name = number == 1 ? wanted : wanted + "-" + std::to_string(number);
    try {
      RenameToNew(from, name);
      return name;
    } catch (const RunTimeError& error) {
      if (error.SystemError() != EEXIST || number == MostTaken) throw;
    }
  }
}

void FlushFolder(const std::string& path) {
  DiskFile folder;
  folder.Open(path, O_RDONLY | O_DIRECTORY);
  folder.Sync();
  folder.Close();
}

}  // namespace qel
