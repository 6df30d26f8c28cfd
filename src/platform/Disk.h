// The operations of the operating system on files, each of which may fail, behind one small interface.
// Everything that touches a file goes through `CurrentDisk()`, so a test can put a disk there that fills,
// fails the nth time or ends the process.
//
// Operations answer as POSIX does: a negative result with errno set. DiskFile.h and Files.h turn that into
// run-time errors; nothing else should call this.
#pragma once

#include <cstddef>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

#include "values/Meanwhile.h"

namespace qel {

class Disk {
 public:
  virtual ~Disk() = default;
  virtual int Open(const std::string& path, int flags, mode_t mode);
  virtual ssize_t Read(int file, void* buffer, std::size_t size);
  virtual off_t Seek(int file, off_t position);  // counted from the beginning
  virtual ssize_t Write(int file, const void* data, std::size_t size);
  virtual int Sync(int file);
  virtual int SetMode(int file, mode_t mode);
  virtual int SetOwner(int file, uid_t owner, gid_t group);
  virtual int StatusOf(int file, struct stat* status);
  virtual int Lock(int file, int operation);  // those of flock(2); closing the file gives a lock back
  virtual int SetLease(int file, int kind);   // fcntl(2): F_RDLCK to take one, F_UNLCK to give it back
  virtual int LeaseOf(int file);              // the kind that may be kept: F_UNLCK where a writer waits
  virtual int Close(int file);
  virtual int Status(const std::string& path, struct stat* status);
  virtual ssize_t ReadLink(const std::string& path, char* buffer, std::size_t size);
  virtual int Rename(const std::string& from, const std::string& to);
  virtual int RenameNew(const std::string& from, const std::string& to);  // EEXIST where `to` is there
  virtual int Remove(const std::string& path);
  virtual int MakeFolder(const std::string& path, mode_t mode);
  virtual int List(const std::string& folder, std::vector<std::string>& names);  // in no order

 protected:
  // What RenameNew does where the file system can. EINVAL or ENOSYS where it knows no such renaming: then it
  // goes by a second name; and where it knows none of these either, by looking first, which leaves an instant
  // to whoever makes the file meanwhile.
  virtual int RenameNewAtOnce(const std::string& from, const std::string& to);
  virtual int Link(const std::string& from, const std::string& to);
};

Disk& CurrentDisk();

// Puts another disk in place for as long as this lives.
class DiskInPlace {
 public:
  explicit DiskInPlace(Disk& disk);

 private:
  Meanwhile<Disk*> hold;
};

}  // namespace qel
