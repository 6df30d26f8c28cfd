#include "registry/RegistryStore.h"

#include "platform/FileLock.h"
#include "platform/Files.h"
#include "registry/RegistryText.h"

namespace qel {

namespace {

constexpr int OwnerOnlyFolder = 0700;
constexpr int OwnerOnlyFile = 0600;

RegistryTree ReadTree(const std::string& path) {
  if (!PathExists(path)) return {};
  return ParseRegistryFile(ReadWholeFile(path));
}

// Whoever opens it would wait for its other end.
bool IsPipe(const std::string& path) {
  struct stat status {};
  return FindStatus(path, status) && S_ISFIFO(status.st_mode);
}

std::string LockPath(const std::string& path) { return path + ".lock"; }

// A name that no file bears yet, for one that makes no sense.
std::string FreeNameBeside(const std::string& path) {
  const std::string first = path + ".bad";
  std::string name = first;
  for (int number = 2; PathExists(name); ++number) name = first + "-" + std::to_string(number);
  return name;
}

const RegistryValue* FindValue(const RegistryTree& tree, std::string_view key, std::string_view name) {
  const auto values = tree.find(key);
  if (values == tree.end()) return nullptr;
  const auto value = values->second.find(name);
  return value == values->second.end() ? nullptr : &value->second;
}

// A path may be given with a separator at its end.
std::string_view KeyPath(std::string_view key) {
  if (key.ends_with(KeySeparator)) key.remove_suffix(1);
  return key;
}

}  // namespace

void RegistryStore::Open(const std::string& path, Access access) {
  *this = RegistryStore();
  if (access == Access::Shared && IsPipe(path)) throw RunTimeError(DeviceError, "QEL", 0, path);
  try {
    tree = ReadTree(path);
  } catch (const RegistryFileError&) {
    this->path = path;
    if (access == Access::ReadOnly || !SetAsideNow())
      std::throw_with_nested(RunTimeError(DeviceError, "QEL", 0, path));
  }
  known = tree;
  this->path = path;
  this->access = access;
}

// False where the file has to stay in its place.
bool RegistryStore::SetAsideNow() {
  try {
    const FileLock lock(LockPath(path));
    tree = ReadOrSetAside({});
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

// With the lock held: another process may have set the file aside and written a good one in the meantime.
RegistryTree RegistryStore::ReadOrSetAside(const RegistryTree& instead) {
  try {
    return ReadTree(path);
  } catch (const RegistryFileError& error) {
    const std::string aside = FreeNameBeside(path);
    RenameFile(path, aside);
    setAside.push_back({path, aside, error.what()});
    return instead;
  }
}

void RegistryStore::Refresh() {
  if (access == Access::ReadOnly) return;
  try {
    RegistryTree fresh = ReadTree(path);
    for (const Change& change : changes) Apply(fresh, change);
    tree = std::move(fresh);
  } catch (const RegistryFileError&) {  // the next flush sees to it
  } catch (const RunTimeError&) {
  }
}

bool RegistryStore::KeyExists(std::string_view key) const { return tree.contains(KeyPath(key)); }

void RegistryStore::CreateKey(std::string_view key) {
  if (KeyExists(key)) return;
  if (!IsKeyPath(KeyPath(key))) Raise(InvalidCall);
  Record({Change::Kind::CreateKey, std::string(KeyPath(key)), {}, {}});
}

const RegistryValue* RegistryStore::Query(std::string_view key, std::string_view name) const {
  const RegistryValue* value = FindValue(tree, KeyPath(key), name);
  const auto values = known.find(KeyPath(key));
  if (value)
    MakeKey(known, KeyPath(key)).insert_or_assign(std::string(name), *value);
  else if (values != known.end())
    values->second.erase(std::string(name));
  return value;
}

bool RegistryStore::Set(std::string_view key, std::string_view name, RegistryValue value) {
  if (name.find('\0') != std::string_view::npos) Raise(InvalidCall);
  if (!KeyExists(key)) return false;
  // What is not changed is not written back, since another process may have changed it.
  const RegistryValue* before = FindValue(known, KeyPath(key), name);
  if (before != nullptr && *before == value) return true;
  Record({Change::Kind::SetValue, std::string(KeyPath(key)), std::string(name), std::move(value)});
  return true;
}

void RegistryStore::DeleteValue(std::string_view key, std::string_view name) {
  if (FindValue(tree, KeyPath(key), name) == nullptr) return;
  Record({Change::Kind::DeleteValue, std::string(KeyPath(key)), std::string(name), {}});
}

void RegistryStore::DeleteKey(std::string_view key) {
  if (!KeyExists(key)) return;
  Record({Change::Kind::DeleteKey, std::string(KeyPath(key)), {}, {}});
}

void RegistryStore::Flush() {
  if (access == Access::ReadOnly || changes.empty()) return;
  flushFailed = true;  // until all is done
  MakeFolders(FolderOf(path), OwnerOnlyFolder);
  const FileLock lock(LockPath(path));
  RemoveStrayTemporaries(path);
  RegistryTree merged = ReadOrSetAside(tree);
  for (const Change& change : changes) Apply(merged, change);
  ReplaceFile(path, WriteRegistryFile(merged), OwnerOnlyFile);
  tree = std::move(merged);
  changes.clear();
  flushFailed = false;
}

bool RegistryStore::ChangedElsewhere(std::string_view key) const {
  const auto now = tree.find(KeyPath(key));
  const auto before = known.find(KeyPath(key));
  const bool isThere = now != tree.end(), wasThere = before != known.end();
  return isThere && wasThere ? now->second != before->second : isThere != wasThere;
}

RegistryStore::Versions RegistryStore::VersionsOf(std::string_view key, std::string_view name) const {
  return {FindValue(known, KeyPath(key), name), FindValue(tree, KeyPath(key), name)};
}

void RegistryStore::TakeAsRead(std::string_view key, std::string_view name, RegistryValue value) {
  MakeKey(known, KeyPath(key)).insert_or_assign(std::string(name), std::move(value));
}

void RegistryStore::Record(Change change) {
  Apply(tree, change);
  Apply(known, change);
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
