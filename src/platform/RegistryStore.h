// The registry: keys, value names and typed values in one text file of the REGEDIT4 format, so that a
// settings file exported on the old system is read as it stands, and ours can be read, compared and restored.
//
// Keys are named by their whole path, as "HKEY_LOCAL_MACHINE\SOFTWARE\QEL\General". Keys and value names
// compare without regard to case and keep the case they were created with.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"

namespace qel {

// The platform's numbers of value types. Others are kept as they came.
enum RegistryType : std::uint32_t { REG_SZ = 1, REG_BINARY = 3, REG_DWORD = 4 };

struct RegistryValue {
  std::uint32_t Type = REG_SZ;
  std::string
      Data;  // the stored bytes: text in Windows-1252 with its closing zero byte, a DWORD's four low first

  bool operator==(const RegistryValue&) const = default;
};

struct NoCaseLess {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

// The values of one key, by name; the default value has the empty name.
using RegistryValues = std::map<std::string, RegistryValue, NoCaseLess>;

// All keys, by path. A key's parents stand here too.
using RegistryTree = std::map<std::string, RegistryValues, NoCaseLess>;

class RegistryStore {
 public:
  enum class Access { ReadOnly, Shared };

  // Reads the file; a file that does not exist is an empty store. With Shared access a file that cannot be
  // parsed is set aside as PATH.bad (with a word on standard error) and the store begins empty; with ReadOnly
  // it raises 57 (see RegistryFile.h for the line at fault). An unreadable file raises its disk error either
  // way.
  void Open(const std::string& path, Access access);

  // Forgets everything, file included: an empty store in memory that Flush leaves there.
  void Reset();

  bool KeyExists(std::string_view key) const;
  void CreateKey(std::string_view key);  // with the keys above it

  // The value, or nothing where key or value is missing. The pointer holds until the next change.
  const RegistryValue* Query(std::string_view key, std::string_view name) const;

  // False where the key does not exist; nothing is stored then.
  bool Set(std::string_view key, std::string_view name, RegistryValue value);
  void DeleteValue(std::string_view key, std::string_view name);
  void DeleteKey(std::string_view key);  // with the keys below it

  // The names of the keys directly below, and of a key's values, in alphabetical order.
  std::vector<std::string> SubKeys(std::string_view key) const;
  std::vector<std::string> ValueNames(std::string_view key) const;

  // Brings the gathered changes to the file: lock, read again, apply the changes, write beside it, flush,
  // rename, flush the folder. Two running programs lose none of each other's changes. Nothing to do where
  // nothing changed or the access is ReadOnly. Afterwards the store also has what others changed meanwhile.
  void Flush();

  const RegistryTree& Tree() const { return tree; }

 private:
  struct Change {
    enum class Kind { CreateKey, SetValue, DeleteValue, DeleteKey } kind;
    std::string key, name;
    RegistryValue value;
  };
  void Apply(RegistryTree& to, const Change& change) const;

  RegistryTree tree;
  std::vector<Change> changes;  // since the last flush
  std::string path;
  Access access = Access::ReadOnly;
};

// The store that the program's settings live in.
extern RegistryStore Registry;

}  // namespace qel
