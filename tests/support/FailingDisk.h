// A disk on which a chosen operation fails: once, or from then on. For the loop
//
//   for (int n = 1; n == 1 || disk.Failed(); ++n) { disk.FailNth(n); ...; }
//
// which runs a piece of work with each of its operations failing in turn, and once more with none.
#pragma once

#include <cerrno>
#include <climits>
#include <functional>

#include "platform/Disk.h"

namespace qel {

class FailingDisk : public Disk {
 public:
  explicit FailingDisk(Disk& beneath = CurrentDisk()) : beneath(beneath) {}

  // Each starts counting anew; operations count from 1.
  void FailNth(int operation, int systemError = EIO) { Plan(operation, operation, systemError); }
  void FailFrom(int operation, int systemError = EIO) { Plan(operation, INT_MAX, systemError); }
  void Mend() { Plan(0, 0, 0); }

  std::function<void(int operation)> Before;  // what others do in front of an operation
  bool NoLeases = false;                      // as on a volume that knows none

  int Operations() const { return operations; }
  bool Failed() const { return failed; }

  int Open(const std::string& path, int flags, mode_t mode) override {
    return Fails() ? -1 : beneath.Open(path, flags, mode);
  }
  ssize_t Read(int file, void* buffer, std::size_t size) override {
    return Fails() ? -1 : beneath.Read(file, buffer, size);
  }
  off_t Seek(int file, off_t position) override { return Fails() ? -1 : beneath.Seek(file, position); }
  // Half of the data gets to the disk before the failure, as when it fills.
  ssize_t Write(int file, const void* data, std::size_t size) override {
    if (halfWritten) {
      halfWritten = false;
      errno = systemError;
      return -1;
    }
    if (!Fails()) return beneath.Write(file, data, size);
    if (size < 2) return -1;
    halfWritten = true;
    return beneath.Write(file, data, size / 2);
  }
  int Sync(int file) override { return Fails() ? -1 : beneath.Sync(file); }
  int SetMode(int file, mode_t mode) override { return Fails() ? -1 : beneath.SetMode(file, mode); }
  int SetOwner(int file, uid_t owner, gid_t group) override {
    return Fails() ? -1 : beneath.SetOwner(file, owner, group);
  }
  int StatusOf(int file, struct stat* status) override {
    return Fails() ? -1 : beneath.StatusOf(file, status);
  }
  int Lock(int file, int operation) override { return Fails() ? -1 : beneath.Lock(file, operation); }
  int SetLease(int file, int kind) override {
    if (!NoLeases) return Fails() ? -1 : beneath.SetLease(file, kind);
    errno = EINVAL;
    return -1;
  }
  int LeaseOf(int file) override { return Fails() ? -1 : beneath.LeaseOf(file); }
  int Close(int file) override {
    const bool fails = Fails();  // which closes it none the less
    const int result = beneath.Close(file);
    if (fails) errno = systemError;
    return fails ? -1 : result;
  }
  int Status(const std::string& path, struct stat* status) override {
    return Fails() ? -1 : beneath.Status(path, status);
  }
  ssize_t ReadLink(const std::string& path, char* buffer, std::size_t size) override {
    return Fails() ? -1 : beneath.ReadLink(path, buffer, size);
  }
  int Rename(const std::string& from, const std::string& to) override {
    return Fails() ? -1 : beneath.Rename(from, to);
  }
  int RenameNew(const std::string& from, const std::string& to) override {
    return Fails() ? -1 : beneath.RenameNew(from, to);
  }
  int Remove(const std::string& path) override { return Fails() ? -1 : beneath.Remove(path); }
  int MakeFolder(const std::string& path, mode_t mode) override {
    return Fails() ? -1 : beneath.MakeFolder(path, mode);
  }
  int List(const std::string& folder, std::vector<std::string>& names) override {
    return Fails() ? -1 : beneath.List(folder, names);
  }

 private:
  void Plan(int first, int last, int error) {
    operations = 0;
    failed = halfWritten = false;
    failFrom = first;
    failTo = last;
    systemError = error;
  }

  bool Fails() {
    ++operations;
    if (Before) Before(operations);
    if (operations < failFrom || operations > failTo) return false;
    failed = true;
    errno = systemError;
    return true;
  }

  Disk& beneath;
  int operations = 0;
  int failFrom = 0, failTo = 0;
  int systemError = EIO;
  bool failed = false;
  bool halfWritten = false;  // the next write tells of it
};

// Two volumes: what is called "far" lies on the other one.
class TwoVolumes : public FailingDisk {
 public:
  using FailingDisk::FailingDisk;
  int Rename(const std::string& from, const std::string& to) override {
    return AreApart(from, to) ? -1 : FailingDisk::Rename(from, to);
  }
  int RenameNew(const std::string& from, const std::string& to) override {
    return AreApart(from, to) ? -1 : FailingDisk::RenameNew(from, to);
  }

 protected:
  static bool AreApart(const std::string& from, const std::string& to) {
    errno = EXDEV;
    return IsFar(from) != IsFar(to);
  }

 private:
  static bool IsFar(const std::string& path) { return path.find("/far/") != std::string::npos; }
};

}  // namespace qel
