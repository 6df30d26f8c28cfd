#include "platform/Disk.h"

#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace qel {

namespace {

Disk systemDisk;
Disk* current = &systemDisk;

}  // namespace

int Disk::Open(const std::string& path, int flags, mode_t mode) {
  return ::open(path.c_str(), flags | O_CLOEXEC, mode);
}
ssize_t Disk::Read(int file, void* buffer, std::size_t size) { return ::read(file, buffer, size); }
ssize_t Disk::Write(int file, const void* data, std::size_t size) { return ::write(file, data, size); }
int Disk::Sync(int file) { return ::fsync(file); }
int Disk::SetMode(int file, mode_t mode) { return ::fchmod(file, mode); }
int Disk::Lock(int file) { return ::flock(file, LOCK_EX); }
int Disk::Close(int file) { return ::close(file); }
int Disk::Status(const std::string& path, struct stat* status) { return ::stat(path.c_str(), status); }
ssize_t Disk::ReadLink(const std::string& path, char* buffer, std::size_t size) {
  return ::readlink(path.c_str(), buffer, size);
}
int Disk::Rename(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str());
}
int Disk::Remove(const std::string& path) { return ::unlink(path.c_str()); }
int Disk::MakeFolder(const std::string& path, mode_t mode) { return ::mkdir(path.c_str(), mode); }
int Disk::List(const std::string& folder, std::vector<std::string>& names) {
  DIR* const entries = ::opendir(folder.c_str());
  if (entries == nullptr) return -1;
  while (const dirent* entry = ::readdir(entries)) names.emplace_back(entry->d_name);
  return ::closedir(entries);
}

Disk& CurrentDisk() { return *current; }

DiskInPlace::DiskInPlace(Disk& disk) : before(current) { current = &disk; }
DiskInPlace::~DiskInPlace() { current = before; }

}  // namespace qel
