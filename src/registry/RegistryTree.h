// The registry in memory: keys by their whole path, as "HKEY_LOCAL_MACHINE\SOFTWARE\QEL\General", and their
// typed values. Keys and value names compare without regard to case and keep the case they were created with.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace qel {

inline constexpr char KeySeparator = '\\';

// The platform's numbers of value types. Others are kept as they came.
enum RegistryType : std::uint32_t {
  REG_SZ = 1,
  REG_EXPAND_SZ = 2,
  REG_BINARY = 3,
  REG_DWORD = 4,
  REG_MULTI_SZ = 7,
};

struct RegistryValue {
  std::uint32_t Type = REG_SZ;
  // The stored bytes: text in Windows-1252 with its closing zero byte, a DWORD's four low first.
  std::string Data;

  bool operator==(const RegistryValue&) const = default;
};

// A DWORD's bytes, and the number that up to four such bytes make; any further ones do not count.
std::string DwordBytes(std::uint32_t number);
std::uint32_t DwordOf(std::string_view bytes);

struct NoCaseLess {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

// The values of one key, by name; the default value has the empty name.
using RegistryValues = std::map<std::string, RegistryValue, NoCaseLess>;

// All keys, by path. A key's parents stand here too.
using RegistryTree = std::map<std::string, RegistryValues, NoCaseLess>;

// Whether a key can have this path: it begins at one of the roots, whose names begin with "HKEY_", no name on
// the way is empty or holds a control character, there are at most 512 of them, and none holds what ends a
// key's line in a file: a closing bracket with a semicolon behind it.
bool IsKeyPath(std::string_view path);

// The values of a key, which is made where missing, with the keys above it. The path must be a key path.
RegistryValues& MakeKey(RegistryTree& tree, std::string_view path);

// Removes a key and the keys below it, if they are there.
void RemoveKey(RegistryTree& tree, std::string_view path);

struct RegistryRange {
  RegistryTree::const_iterator first, last;
  auto begin() const { return first; }
  auto end() const { return last; }
};

// All keys below a key, at any depth.
RegistryRange KeysBelow(const RegistryTree& tree, std::string_view path);

}  // namespace qel
