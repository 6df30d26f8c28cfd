#include "platform/DiskFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <utility>

#include "platform/Disk.h"
#include "platform/Files.h"

namespace qel {

namespace {

template <typename Operation>
auto Repeated(Operation operation) {
  auto result = operation();
  while (result < 0 && errno == EINTR) result = operation();
  return result;
}

bool KnowsNoFlush(int systemError) {
  return systemError == EINVAL || systemError == ENOTSUP || systemError == EOPNOTSUPP || systemError == EROFS;
}

}  // namespace

void DiskFile::Open(const std::string& path, int flags, mode_t mode) {
  CloseQuietly();
  this->path = path;
  handle = Repeated([&] { return CurrentDisk().Open(path, flags, mode); });
  if (handle < 0) RaiseDiskError(errno, path);
}

std::size_t DiskFile::Read(char* buffer, std::size_t size) {
  const int from = Handle();
  const ssize_t count = Repeated([&] { return CurrentDisk().Read(from, buffer, size); });
  if (count < 0) RaiseDiskError(errno, path);
  return static_cast<std::size_t>(count);
}

void DiskFile::SeekTo(std::int64_t position) {
  if (CurrentDisk().Seek(Handle(), position) < 0) RaiseDiskError(errno, path);
}

std::size_t DiskFile::WriteSome(std::string_view text) {
  const int to = Handle();
  const ssize_t count = Repeated([&] { return CurrentDisk().Write(to, text.data(), text.size()); });
  if (count <= 0) RaiseDiskError(count < 0 ? errno : ENOSPC, path);
  return static_cast<std::size_t>(count);
}

void DiskFile::Write(std::string_view text) {
  while (!text.empty()) text.remove_prefix(WriteSome(text));
}

void DiskFile::Sync() {
  const int file = Handle();
  if (Repeated([&] { return CurrentDisk().Sync(file); }) < 0 && !KnowsNoFlush(errno))
    RaiseDiskError(errno, path);
}

void DiskFile::SetMode(mode_t mode) {
  if (CurrentDisk().SetMode(Handle(), mode) < 0) RaiseDiskError(errno, path);
}

void DiskFile::TakeOwner(uid_t owner, gid_t group) {
  constexpr uid_t Unchanged = static_cast<uid_t>(-1);
  const int file = Handle();
  if (CurrentDisk().SetOwner(file, owner, group) < 0) CurrentDisk().SetOwner(file, Unchanged, group);
}

struct stat DiskFile::Status() {
  struct stat status {};
  if (CurrentDisk().StatusOf(Handle(), &status) < 0) RaiseDiskError(errno, path);
  return status;
}

void DiskFile::Lock() {
  const int file = Handle();
  if (Repeated([&] { return CurrentDisk().Lock(file, LOCK_EX); }) < 0) RaiseDiskError(errno, path);
}

bool DiskFile::TryLock() {
  const int file = Handle();
  return Repeated([&] { return CurrentDisk().Lock(file, LOCK_EX | LOCK_NB); }) == 0 || errno != EWOULDBLOCK;
}

DiskFile::Barrier DiskFile::HoldWritersBack() {
  hasBarrier = CurrentDisk().SetLease(Handle(), F_RDLCK) == 0;
  if (hasBarrier) return Barrier::Stands;
  return errno == EAGAIN ? Barrier::Refused : Barrier::Unknown;
}

bool DiskFile::WriterWaits() { return hasBarrier && CurrentDisk().LeaseOf(Handle()) == F_UNLCK; }

void DiskFile::Close() {
  if (!IsOpen()) return;
  LetWritersGoOn();
  // An interrupted close has closed the file all the same; a second one might close a stranger's.
  if (CurrentDisk().Close(std::exchange(handle, -1)) < 0 && errno != EINTR) RaiseDiskError(errno, path);
}

void DiskFile::CloseQuietly() noexcept {
  if (!IsOpen()) return;
  LetWritersGoOn();
  CurrentDisk().Close(std::exchange(handle, -1));
}

// Closing alone would not do where a process that was started meanwhile has the file as well.
void DiskFile::LetWritersGoOn() noexcept {
  if (std::exchange(hasBarrier, false)) CurrentDisk().SetLease(handle, F_UNLCK);
}

int DiskFile::Handle() const {
  if (!IsOpen()) throw RunTimeError(BadFileName, "QEL", 0, path);
  return handle;
}

bool FindStatus(const std::string& path, struct stat& status) {
  if (CurrentDisk().Status(path, &status) == 0) return true;
  if (errno == ENOENT || errno == ENOTDIR) return false;
  RaiseDiskError(errno, path);
}

void RaiseDiskError(int systemError, const std::string& path) {
  struct stat folder {};
  if (systemError == ENOENT && CurrentDisk().Status(FolderOf(path), &folder) < 0)
    throw RunTimeError(PathNotFound, "QEL", systemError, path);
  RaiseErrno(systemError, path);
}

}  // namespace qel
