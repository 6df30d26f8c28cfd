// The registry: keys, value names and typed values in one text file of the REGEDIT4 format, so that a
// settings file exported on the old system is read as it stands, and ours can be read, compared and restored.
//
// Keys are named by their whole path; see RegistryTree.h.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "registry/RegistryTree.h"

namespace qel {

class RegistryStore {
 public:
  enum class Access { ReadOnly, Shared };

  // A file that could not be parsed and was kept under another name. `Why` names the line at fault.
  struct SetAsideFile {
    std::string Path, KeptAs, Why;
  };

  // Reads the file; a file that does not exist is an empty store. With Shared access a file that cannot be
  // parsed is set aside as PATH.bad, or PATH.bad-2 and so on where that name is taken, and the store begins
  // empty; with ReadOnly, or where it cannot be set aside, it raises 57, with the RegistryFileError that
  // names the line at fault nested within. An unreadable file raises its disk error either way, a pipe in the
  // place of a shared one 57. Where Open raises, the store is a new one.
  void Open(const std::string& path, Access access);

  // Reads the file anew, for what other programs wrote to it since. What cannot be read changes nothing.
  void Refresh();

  // Forgets everything, file included: an empty store in memory that Flush leaves there.

  bool KeyExists(std::string_view key) const;

  // Makes a key with the keys above it. Raises 5 for what cannot be a key's path.
  void CreateKey(std::string_view key);

  // The value, or nothing where key or value is missing. The pointer holds until the next change.
  const RegistryValue* Query(std::string_view key, std::string_view name) const;

  // Keeps the value, and brings it to the file with the next flush if it is another than this program last
  // read (by Open or Query) or wrote, whatever other programs have stored meanwhile. False where the key does
  // not exist; nothing is stored then. Raises 5 for a name with a zero byte.
  bool Set(std::string_view key, std::string_view name, RegistryValue value);
  void DeleteValue(std::string_view key, std::string_view name);
  void DeleteKey(std::string_view key);  // with the keys below it

  // Brings the gathered changes to the file: lock, read again, apply the changes, write beside it, flush,
  // rename, flush the folder. Running programs lose none of each other's changes. Nothing to do where nothing
  // changed or the access is ReadOnly. Afterwards the store also has what others changed meanwhile. Where it
  // raises, the changes are kept for the next flush. A file that cannot be parsed by now is set aside as in
  // Open, and all that this store holds takes its place. What a crashed program left beside the file is
  // removed.
  void Flush();

  // Whether the last flush raised.
  bool FlushFailed() const { return flushFailed; }

  // Whether other programs changed something in this key since this one last read or wrote it.
  bool ChangedElsewhere(std::string_view key) const;

  // A value as this program last read or wrote it, and as it stands now; nothing where it is missing. The
  // pointers hold until the next change.
  struct Versions {
    const RegistryValue *Ours, *Now;
  };
  Versions VersionsOf(std::string_view key, std::string_view name) const;

  // Lets `value` pass for what this program has read here: what stands there cannot be used, and stays as
  // long as the program has nothing else to say than that.
  void TakeAsRead(std::string_view key, std::string_view name, RegistryValue value);

  // The files set aside since this was last asked, for whoever tells the user.
  std::vector<SetAsideFile> TakeSetAside() { return std::exchange(setAside, {}); }

  const RegistryTree& Tree() const { return tree; }

 private:
  struct Change {
    enum class Kind { CreateKey, SetValue, DeleteValue, DeleteKey } kind;
    std::string key, name;
    RegistryValue value;
  };
  void Record(Change change);  // makes it here and keeps it for the next flush
  static void Apply(RegistryTree& to, const Change& change);
  RegistryTree ReadOrSetAside(const RegistryTree& instead);
  bool SetAsideNow();

  RegistryTree tree;  // the file as it was last read, with the changes made here
  mutable RegistryTree
      known;  // the values as this program last read or wrote them, by which changes are told
  std::vector<Change> changes;  // since the last flush that succeeded
  std::vector<SetAsideFile> setAside;
  std::string path;
  Access access = Access::ReadOnly;
  bool flushFailed = false;
};

}  // namespace qel
