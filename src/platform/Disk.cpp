#include "platform/Disk.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <iterator>
#include <sys/file.h>
#include <unistd.h>

namespace qel {

namespace {

Disk systemDisk;
Disk* current = &systemDisk;

constexpr int Failed = -1;

// What a file system answers that has no such operation; some of it has other causes too.
bool IsBeyondTheVolume(int systemError) {
  static constexpr int Answers[] = {EINVAL, ENOSYS, EPERM, ENOTSUP, EOPNOTSUPP};
  return std::ranges::find(Answers, systemError) != std::end(Answers);
}

}  // namespace

int Disk::Open(const std::string& path, int flags, mode_t mode) {
  return ::open(path.c_str(), flags | O_CLOEXEC, mode);
}
ssize_t Disk::Read(int file, void* buffer, std::size_t size) { return ::read(file, buffer, size); }
off_t Disk::Seek(int file, off_t position) { return ::lseek(file, position, SEEK_SET); }
ssize_t Disk::Write(int file, const void* data, std::size_t size) { return ::write(file, data, size); }
int Disk::Sync(int file) { return ::fsync(file); }
int Disk::SetMode(int file, mode_t mode) { return ::fchmod(file, mode); }
int Disk::SetOwner(int file, uid_t owner, gid_t group) { return ::fchown(file, owner, group); }
int Disk::StatusOf(int file, struct stat* status) { return ::fstat(file, status); }
int Disk::Lock(int file, int operation) { return ::flock(file, operation); }
int Disk::SetLease(int file, int kind) {
#ifdef F_SETLEASE
  // By a signal that is passed over: the default one would end the program when a writer comes.
  if (kind != F_UNLCK && ::fcntl(file, F_SETSIG, SIGURG) < 0) return Failed;
  return ::fcntl(file, F_SETLEASE, kind);
#else
  errno = ENOTSUP;
  return Failed;
#endif
}
int Disk::LeaseOf(int file) {
#ifdef F_GETLEASE
  return ::fcntl(file, F_GETLEASE);
#else
  return F_UNLCK;
#endif
}
int Disk::Close(int file) { return ::close(file); }
int Disk::Status(const std::string& path, struct stat* status) { return ::stat(path.c_str(), status); }
ssize_t Disk::ReadLink(const std::string& path, char* buffer, std::size_t size) {
  return ::readlink(path.c_str(), buffer, size);
}
int Disk::Rename(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str());
}
int Disk::RenameNew(const std::string& from, const std::string& to) {
  if (RenameNewAtOnce(from, to) == 0) return 0;
  if (!IsBeyondTheVolume(errno)) return Failed;
  if (Link(from, to) == 0) {
    if (Remove(from) == 0) return 0;
    const int systemError = errno;
    Remove(to);
    errno = systemError;
    return Failed;
  }
  if (!IsBeyondTheVolume(errno)) return Failed;
  if (::access(to.c_str(), F_OK) != 0) return Rename(from, to);
  errno = EEXIST;
  return Failed;
}
int Disk::RenameNewAtOnce(const std::string& from, const std::string& to) {
#ifdef RENAME_NOREPLACE
  return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
#else
  errno = ENOSYS;
  return Failed;
#endif
}
int Disk::Link(const std::string& from, const std::string& to) { return ::link(from.c_str(), to.c_str()); }
int Disk::Remove(const std::string& path) { return ::unlink(path.c_str()); }
int Disk::MakeFolder(const std::string& path, mode_t mode) { return ::mkdir(path.c_str(), mode); }
int Disk::List(const std::string& folder, std::vector<std::string>& names) {
  DIR* const entries = ::opendir(folder.c_str());
  if (entries == nullptr) return Failed;
  while (const dirent* entry = ::readdir(entries)) names.emplace_back(entry->d_name);
  return ::closedir(entries);
}

Disk& CurrentDisk() { return *current; }

DiskInPlace::DiskInPlace(Disk& disk) : hold(current, &disk) {}

}  // namespace qel
