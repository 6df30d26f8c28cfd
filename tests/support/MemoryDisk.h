// A disk in memory: regular files in folders, with their modes, owners, time stamps, locks and leases.
//
// It is as forgetful as a disk may be: when the power fails, what was written to a file that was not flushed
// is gone, and so are names that were given or taken in a folder that was not.
#pragma once

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Disk.h"
#include "platform/Files.h"

namespace qel {

class MemoryDisk : public Disk {
 public:
  // What a test does to the disk and sees of it; a failing disk in front of it takes no notice.
  void Empty() { *this = MemoryDisk(); }
  void PutFolder(const std::string& path) { flushed[path] = Make(path, S_IFDIR | 0777); }
  void Put(const std::string& path, std::string_view content) {
    flushed[path] = Make(path, S_IFREG | 0644);
    names[path]->content = names[path]->flushed = content;
  }
  bool Has(const std::string& path) const { return names.contains(path); }
  std::string Content(const std::string& path) const { return Has(path) ? names.at(path)->content : ""; }
  // Gives a file a second name.
  void PutLink(const std::string& path, const std::string& other) { names[other] = names.at(path); }
  void FailPower() {
    names = flushed;
    for (const auto& [path, node] : names) node->content = node->flushed;
  }

  // Another program appends: to a file that it opens, waiting until a lease is given back, or to one that it
  // has held open since.
  void Append(const std::string& path, const std::string& text) {
    Node& node = Has(path) ? *names[path] : *Make(path, S_IFREG | 0644);
    node.leased ? void(node.waiting += text) : Append(node, text);
  }
  void Hold(const std::string& path) { ++(held = names.at(path))->writers; }
  void AppendToHeld(const std::string& text) { Append(*held, text); }

  int Open(const std::string& path, int flags, mode_t mode) override {
    if (Has(path) && (flags & O_EXCL)) return Fail(EEXIST);
    if (!Has(path) && !((flags & O_CREAT) && Has(FolderOf(path)))) return Fail(ENOENT);
    if (!Has(path)) Make(path, S_IFREG | mode);
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    Node& node = *names[path];
    if (flags & O_TRUNC) Change(node, "");
    node.writers += writes;
    open[++numbers] = {names[path], path, writes};
    return numbers;
  }
  ssize_t Read(int file, void* buffer, std::size_t size) override {
    Descriptor& from = open.at(file);
    const std::size_t count = from.node->content.copy(static_cast<char*>(buffer), size, from.position);
    from.position += count;
    return static_cast<ssize_t>(count);
  }
  off_t Seek(int file, off_t position) override {
    open.at(file).position = static_cast<std::size_t>(position);
    return position;
  }
  ssize_t Write(int file, const void* data, std::size_t size) override {
    Append(At(file), std::string(static_cast<const char*>(data), size));
    return static_cast<ssize_t>(size);
  }
  int Sync(int file) override {
    At(file).flushed = At(file).content;
    const auto isInside = [folder = open.at(file).path](const auto& entry) {
      return FolderOf(entry.first) == folder;
    };
    std::erase_if(flushed, isInside);
    for (const auto& entry : names)
      if (isInside(entry)) flushed.insert(entry);
    return 0;
  }
  int SetMode(int file, mode_t mode) override {
    At(file).mode = (At(file).mode & S_IFMT) | mode;
    return 0;
  }
  int SetOwner(int, uid_t, gid_t) override { return 0; }
  int StatusOf(int file, struct stat* status) override { return Tell(At(file), status); }
  int Lock(int file, int) override {
    if (At(file).lockedBy > 0 && At(file).lockedBy != file) return Fail(EWOULDBLOCK);
    At(file).lockedBy = file;
    return 0;
  }
  int SetLease(int file, int kind) override {
    if (kind != F_UNLCK && At(file).writers > 0) return Fail(EAGAIN);
    At(file).leased = kind != F_UNLCK;
    if (kind == F_UNLCK) Append(At(file), std::exchange(At(file).waiting, ""));
    return 0;
  }
  int LeaseOf(int file) override { return At(file).leased && At(file).waiting.empty() ? F_RDLCK : F_UNLCK; }
  int Close(int file) override {
    if (At(file).lockedBy == file) At(file).lockedBy = 0;
    At(file).writers -= open.at(file).writes;
    open.erase(file);
    return 0;
  }
  int Status(const std::string& path, struct stat* status) override {
    return Has(path) ? Tell(*names[path], status) : Fail(ENOENT);
  }
  ssize_t ReadLink(const std::string& path, char*, std::size_t) override {
    return Fail(Has(path) ? EINVAL : ENOENT);
  }
  int Rename(const std::string& from, const std::string& to) override {
    if (!Has(from)) return Fail(ENOENT);
    const auto node = names.extract(from).mapped();
    names[to] = node;
    return 0;
  }
  int RenameNew(const std::string& from, const std::string& to) override {
    return Has(to) ? Fail(EEXIST) : Rename(from, to);
  }
  int Remove(const std::string& path) override { return names.erase(path) > 0 ? 0 : Fail(ENOENT); }

 private:
  struct Node {
    mode_t mode = 0;
    int number = 0;
    int changed = 0;  // nanoseconds
    std::string content = "", flushed = "";
    std::string waiting = "";  // what others append as soon as they may
    int writers = 0;           // descriptors that write
    int lockedBy = 0;          // descriptor
    bool leased = false;
  };
  using NodePointer = std::shared_ptr<Node>;
  struct Descriptor {
    NodePointer node;
    std::string path;
    bool writes;
    std::size_t position = 0;
  };

  static int Fail(int systemError) {
    errno = systemError;
    return -1;
  }
  static int Tell(const Node& node, struct stat* status) {
    *status = {};
    status->st_mode = node.mode;
    status->st_ino = static_cast<ino_t>(node.number);
    status->st_size = static_cast<off_t>(node.content.size());
    status->st_mtim.tv_nsec = node.changed;
    return 0;
  }
  NodePointer Make(const std::string& path, mode_t mode) {
    ++numbers;
    return names[path] = std::make_shared<Node>(Node{.mode = mode, .number = numbers, .changed = numbers});
  }
  Node& At(int file) { return *open.at(file).node; }
  void Append(Node& node, const std::string& text) { Change(node, node.content + text); }
  void Change(Node& node, std::string content) {
    if (content == node.content) return;
    node.content = std::move(content);
    node.changed = ++numbers;
  }

  std::map<std::string, NodePointer> names, flushed;
  std::map<int, Descriptor> open;
  NodePointer held;
  int numbers = 0;  // of files, descriptors and the clock that the time stamps are from
};

}  // namespace qel
