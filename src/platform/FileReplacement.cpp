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

void SyncFolder(const std::string& path) {
  DiskFile folder;
  folder.Open(path, O_RDONLY | O_DIRECTORY);
  folder.Sync();
  folder.Close();
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
    if (finished) return;
    file.CloseQuietly();
    CurrentDisk().Remove(temporary);
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  void SetMode(mode_t mode) { file.SetMode(mode & PermissionBits); }
  void Write(std::string_view text) { file.Write(text); }
  void Finish() {
    file.Sync();
    file.Close();
    if (CurrentDisk().Rename(temporary, target) < 0) RaiseDiskError(errno, target);
    finished = true;
    SyncFolder(FolderOf(target));
  }

 private:
  // Under a name of its own: a process of the same number may have left a file behind when it crashed.
  void OpenBeside(mode_t mode) {
    constexpr int MostLeftBehind = 100;
    for (int number = 1;; ++number) {
      temporary = TemporaryBegin(target) + std::to_string(getpid()) + "-" + std::to_string(number);
      temporary += TemporaryEnd;
      try {
        return file.Open(temporary, O_WRONLY | O_CREAT | O_EXCL, mode);
      } catch (const RunTimeError& error) {
        if (error.SystemError() != EEXIST || number == MostLeftBehind) throw;
      }
    }
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

void MoveAcrossVolumes(const std::string& from, const std::string& to) {
  struct stat status {};
  if (!FindStatus(from, status)) RaiseDiskError(ENOENT, from);
  BlockReader reader(from);
  Replacement replacement(to, status.st_mode & PermissionBits);
  replacement.SetMode(status.st_mode);
  for (auto block = reader.Next(); !block.empty(); block = reader.Next()) replacement.Write(block);
  reader.Close();
  replacement.Finish();
  RemoveFile(from);
}

}  // namespace

void ReplaceFile(const std::string& path, std::string_view content, int newMode) {
  struct stat status {};
  const bool exists = FindStatus(path, status);
  if (exists && !S_ISREG(status.st_mode)) return WriteThrough(path, content);
  Replacement replacement(BehindLinks(path),
                          exists ? status.st_mode & PermissionBits : static_cast<mode_t>(newMode));
  if (exists) replacement.SetMode(status.st_mode);
  replacement.Write(content);
  replacement.Finish();
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

void CopyMode(const std::string& from, const std::string& to) {
  struct stat status {};
  if (!FindStatus(from, status)) RaiseDiskError(ENOENT, from);
  DiskFile file;
  file.Open(to, O_RDONLY);
  file.SetMode(status.st_mode & PermissionBits);
  file.Close();
}

void RenameFile(const std::string& from, const std::string& to) {
  const std::string source = BehindLinks(from);
  const std::string target = BehindLinks(to);
  if (CurrentDisk().Rename(source, target) == 0) return SyncFolder(FolderOf(target));
  const int systemError = errno;
  if (systemError == EXDEV) return MoveAcrossVolumes(source, target);
  RaiseDiskError(systemError, PathExists(source) ? to : from);
}

}  // namespace qel
