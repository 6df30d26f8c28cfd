#include "platform/RegistryStore.h"

#include <cstdio>
#include <exception>
#include <utility>

#include "platform/FileLock.h"
#include "platform/Files.h"
#include "platform/RegistryFile.h"

namespace qel {

namespace {

constexpr int OwnerOnlyFolder = 0700;
constexpr int OwnerOnlyFile = 0600;

RegistryTree ReadTree(const std::string& path) {
  if (!PathExists(path)) return {};
  return ParseRegistryFile(ReadWholeFile(path));
}

std::string LockPath(const std::string& path) { return path + ".lock"; }

// With the lock held: another process may have set the file aside and written a good one in the meantime.
RegistryTree ReadOrSetAside(const std::string& path, const RegistryTree& instead) {
  try {
    return ReadTree(path);
  } catch (const RegistryFileError& error) {
    const std::string aside = path + ".bad";
    RenameFile(path, aside);
    std::fprintf(stderr, "qel: %s makes no sense (%s); it is kept as %s\n", path.c_str(), error.what(),
                 aside.c_str());
    return instead;
  }
}

// A path may be given with a separator at its end.
std::string_view KeyPath(std::string_view key) {
  if (key.ends_with(KeySeparator)) key.remove_suffix(1);
  return key;
}

}  // namespace

RegistryStore Registry;

void RegistryStore::Open(const std::string& path, Access access) {
  Reset();
  try {
    tree = ReadTree(path);
  } catch (const RegistryFileError&) {
    if (access == Access::ReadOnly) std::throw_with_nested(RunTimeError(DeviceError, "QEL", 0, path));
    const FileLock lock(LockPath(path));
    tree = ReadOrSetAside(path, {});
  }
  this->path = path;
  this->access = access;
}

void RegistryStore::Reset() { *this = RegistryStore(); }

bool RegistryStore::KeyExists(std::string_view key) const { return tree.contains(KeyPath(key)); }

void RegistryStore::CreateKey(std::string_view key) {
  if (KeyExists(key)) return;
  if (!IsKeyPath(KeyPath(key))) Raise(InvalidCall);
  Record({Change::Kind::CreateKey, std::string(KeyPath(key)), {}, {}});
}

const RegistryValue* RegistryStore::Query(std::string_view key, std::string_view name) const {
  const auto values = tree.find(KeyPath(key));
  if (values == tree.end()) return nullptr;
  const auto value = values->second.find(name);
  return value == values->second.end() ? nullptr : &value->second;
}

bool RegistryStore::Set(std::string_view key, std::string_view name, RegistryValue value) {
  if (name.find('\0') != std::string_view::npos) Raise(InvalidCall);
  if (!KeyExists(key)) return false;
  // What is not changed is not written back, since another process may have changed it.
  const RegistryValue* before = Query(key, name);
  if (before != nullptr && *before == value) return true;
  Record({Change::Kind::SetValue, std::string(KeyPath(key)), std::string(name), std::move(value)});
  return true;
}

void RegistryStore::DeleteValue(std::string_view key, std::string_view name) {
  if (Query(key, name) == nullptr) return;
  Record({Change::Kind::DeleteValue, std::string(KeyPath(key)), std::string(name), {}});
}

void RegistryStore::DeleteKey(std::string_view key) {
  if (!KeyExists(key)) return;
  Record({Change::Kind::DeleteKey, std::string(KeyPath(key)), {}, {}});
}

std::vector<std::string> RegistryStore::SubKeys(std::string_view key) const {
  const std::size_t nameBegin = KeyPath(key).size() + 1;
  std::vector<std::string> names;
  for (const auto& [path, values] : KeysBelow(tree, KeyPath(key)))
    if (path.find(KeySeparator, nameBegin) == std::string::npos) names.push_back(path.substr(nameBegin));
  return names;
}

std::vector<std::string> RegistryStore::ValueNames(std::string_view key) const {
  std::vector<std::string> names;
  if (const auto values = tree.find(KeyPath(key)); values != tree.end())
    for (const auto& [name, value] : values->second) names.push_back(name);
  return names;
}

void RegistryStore::Flush() {
  if (access == Access::ReadOnly || changes.empty()) return;
  MakeFolders(FolderOf(path), OwnerOnlyFolder);
  const FileLock lock(LockPath(path));
  RegistryTree merged = ReadOrSetAside(path, tree);
  for (const Change& change : changes) Apply(merged, change);
  ReplaceFile(path, WriteRegistryFile(merged), OwnerOnlyFile);
  tree = std::move(merged);
  changes.clear();
}

void RegistryStore::Record(Change change) {
  Apply(tree, change);
  if (access == Access::Shared) changes.push_back(std::move(change));
}

void RegistryStore::Apply(RegistryTree& to, const Change& change) {
  switch (change.kind) {
    case Change::Kind::CreateKey:
      MakeKey(to, change.key);
      break;
    case Change::Kind::SetValue:  // though another process may have deleted the key
      MakeKey(to, change.key).insert_or_assign(change.name, change.value);
      break;
    case Change::Kind::DeleteValue:
      if (const auto values = to.find(change.key); values != to.end()) values->second.erase(change.name);
      break;
    case Change::Kind::DeleteKey:
      RemoveKey(to, change.key);
      break;
  }
}

}  // namespace qel
