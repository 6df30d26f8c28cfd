#include "platform/Files.h"

#include <algorithm>
#include <cerrno>

#include "platform/Disk.h"

namespace qel {

bool PathExists(const std::string& path) {
  struct stat status {};
  return FindStatus(path, status);
}

bool IsFolder(const std::string& path) {
  struct stat status {};
  return FindStatus(path, status) && S_ISDIR(status.st_mode);
}

bool FileExists(const std::string& path) { return !path.empty() && PathExists(path) && !IsFolder(path); }

bool IsStream(const std::string& path) {
  struct stat status {};
  return CurrentDisk().Status(path, &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

bool IsSameFile(const std::string& a, const std::string& b) {
  struct stat ofA {};
  struct stat ofB {};
  return CurrentDisk().Status(a, &ofA) == 0 && CurrentDisk().Status(b, &ofB) == 0 &&
         ofA.st_dev == ofB.st_dev && ofA.st_ino == ofB.st_ino;
}

std::int64_t FileLength(const std::string& path) {
  struct stat status {};
  if (CurrentDisk().Status(path, &status) < 0) RaiseDiskError(errno, path);
  if (S_ISDIR(status.st_mode)) RaiseDiskError(EISDIR, path);
  return status.st_size;
}

FileStamp StampOf(const std::string& path) {
  struct stat status {};
  if (CurrentDisk().Status(path, &status) < 0) RaiseDiskError(errno, path);
  return StampOf(status);
}

FileStamp StampOf(const struct stat& status) {
  return {status.st_size, status.st_mtim.tv_sec * std::int64_t{1'000'000'000} + status.st_mtim.tv_nsec};
}

void MakeFolders(const std::string& path, int mode) {
  if (IsFolder(path)) return;
  MakeFolders(FolderOf(path), mode);
  if (CurrentDisk().MakeFolder(path, static_cast<mode_t>(mode)) == 0) return;
  if (errno != EEXIST) RaiseDiskError(errno, path);
  if (!IsFolder(path)) RaiseDiskError(ENOTDIR, path);  // else another program was faster
}

std::string FolderOf(const std::string& path) {
  const std::size_t separator = path.rfind(PathSeparator);
  if (separator == std::string::npos) return ".";
  return path.substr(0, std::max<std::size_t>(separator, 1));
}

std::string FileNamePart(const std::string& path) { return path.substr(path.rfind(PathSeparator) + 1); }

std::string FolderPart(const std::string& path) { return path.substr(0, path.rfind(PathSeparator) + 1); }

std::string ReadWholeFile(const std::string& path) {
  std::string content;
  BlockReader reader(path);
  for (auto block = reader.Next(); !block.empty(); block = reader.Next()) content += block;
  reader.Close();
  return content;
}

void RemoveFile(const std::string& path) {
  if (CurrentDisk().Remove(path) < 0) RaiseDiskError(errno, path);
}

}  // namespace qel
