#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "platform/Disk.h"
#include "platform/RegistryFile.h"
#include "platform/RegistryStore.h"
#include "support/ErrorOf.h"
#include "support/FailingDisk.h"
#include "support/TemporaryFolder.h"

namespace qel {
namespace {

namespace fs = std::filesystem;
using Access = RegistryStore::Access;
using Names = std::vector<std::string>;

const std::string Key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL";

RegistryValue Text(const std::string& text) { return {REG_SZ, text + '\0'}; }

class RegistryStoreTest : public testing::Test {
 protected:
  RegistryStore Opened(Access access = Access::Shared) {
    RegistryStore store;
    store.Open(path, access);
    return store;
  }
  RegistryTree OnDisk() { return ParseRegistryFile(folder.Content("registry.reg")); }

  // A file with a=1 and b=1.
  void PutOld() {
    folder.Put("registry.reg", "REGEDIT4\r\n\r\n[" + Key + "]\r\n\"a\"=\"1\"\r\n\"b\"=\"1\"\r\n");
  }

  TemporaryFolder folder;
  std::string path = folder.Path("registry.reg");
};

TEST_F(RegistryStoreTest, KeysAndValuesIgnoreCaseAndKeepIt) {
  RegistryStore store;
  EXPECT_FALSE(store.Set(Key, "a", Text("1")));
  store.CreateKey(Key);
  store.CreateKey("hkey_local_machine\\software\\qel\\Tariffs\\Home");
  store.CreateKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL Two");
  EXPECT_TRUE(store.Set("HKEY_LOCAL_MACHINE\\Software\\qel\\", "Name", Text("1")));
  EXPECT_TRUE(store.Set(Key, "NAME", Text("2")));
  EXPECT_TRUE(store.Set(Key, "", Text("default")));
  EXPECT_EQ(*store.Query(Key, "name"), Text("2"));
  EXPECT_EQ(store.ValueNames(Key), (Names{"", "Name"}));
  EXPECT_EQ(store.SubKeys("HKEY_LOCAL_MACHINE\\software"), (Names{"QEL", "QEL Two"}));
  EXPECT_EQ(store.SubKeys(Key), Names{"Tariffs"});
  EXPECT_EQ(store.Tree().find(Key + "\\Tariffs\\Home")->first, Key + "\\Tariffs\\Home");
  store.DeleteValue(Key, "nAME");
  EXPECT_EQ(store.Query(Key, "Name"), nullptr);
  store.DeleteKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\qel");
  EXPECT_EQ(store.SubKeys("HKEY_LOCAL_MACHINE\\SOFTWARE"), Names{"QEL Two"});
  EXPECT_FALSE(store.KeyExists(Key + "\\Tariffs\\Home"));
}

TEST_F(RegistryStoreTest, WhatTheFileCannotHoldIsRefused) {
  RegistryStore store;
  for (const std::string key : {"", "SOFTWARE\\QEL", "HKEY_X\\\\A", "HKEY_X\\a\nb", "HKEY_X\\a] ;b"})
    EXPECT_THROW(store.CreateKey(key), RunTimeError) << key;
  store.CreateKey(Key);
  EXPECT_THROW(store.Set(Key, std::string("a\0b", 3), Text("1")), RunTimeError);
}

TEST_F(RegistryStoreTest, TheFirstFlushMakesAFileForItsOwnerOnly) {
  path = folder.Path("config/qel/registry.reg");
  RegistryStore store = Opened();
  store.Flush();
  EXPECT_FALSE(folder.Has("config"));
  store.CreateKey(Key);
  store.Set(Key, "a", Text("1"));
  store.Flush();
  EXPECT_EQ(fs::status(path).permissions(), fs::perms{0600});
  EXPECT_EQ(fs::status(folder.Path("config/qel")).permissions(), fs::perms{0700});
  EXPECT_EQ(Opened().Tree(), store.Tree());
}

TEST_F(RegistryStoreTest, TwoStoresLoseNoneOfEachOthersChanges) {
  PutOld();
  RegistryStore one = Opened(), two = Opened();
  one.Set(Key, "a", Text("one"));
  one.CreateKey(Key + "\\One");
  one.Set(Key, "c", Text("one"));
  two.Set(Key, "a", Text("1"));  // no change
  two.Set(Key, "b", Text("two"));
  two.CreateKey(Key + "\\Two");
  two.Set(Key, "c", Text("two"));
  one.Flush();
  two.Flush();
  EXPECT_EQ(OnDisk().at(Key), (RegistryValues{{"a", Text("one")}, {"b", Text("two")}, {"c", Text("two")}}));
  EXPECT_EQ(two.SubKeys(Key), (Names{"One", "Two"}));

  one.DeleteKey(Key);
  one.Flush();
  EXPECT_FALSE(OnDisk().contains(Key + "\\Two"));
  two.Set(Key, "b", Text("again"));
  two.Flush();
  EXPECT_EQ(OnDisk().at(Key), (RegistryValues{{"b", Text("again")}}));
}

// Each holds all of its settings in memory and stores all of them each time, as the program does.
TEST_F(RegistryStoreTest, ThreeProgramsThatWriteInTurnLoseNothing) {
  PutOld();
  std::vector<std::pair<RegistryStore, RegistryValues>> programs(3);
  for (auto& [store, memory] : programs) {
    store.Open(path, Access::Shared);
    for (const std::string& name : store.ValueNames(Key)) memory[name] = *store.Query(Key, name);
  }
  RegistryValues expected = programs[0].second;
  for (const std::string round : {"1", "2", "3"}) {
    for (std::size_t i = 0; i < programs.size(); ++i) {
      auto& [store, memory] = programs[i];
      // In the second round nobody has changed anything.
      const std::string own = "own" + std::to_string(i);
      if (round != "2") memory[own] = expected[own] = Text(round);
      if (round == "1" && i == 1) memory["b"] = expected["b"] = Text("new");
      for (const auto& [name, value] : memory) store.Set(Key, name, value);
      store.Flush();
      EXPECT_EQ(OnDisk().at(Key), expected) << "round " << round << ", " << own;
    }
  }
  EXPECT_EQ(programs[2].first.Tree(), OnDisk()) << "what others wrote is known";
}

TEST_F(RegistryStoreTest, WhatWasReadAnewIsWhatAChangeIsToldFrom) {
  PutOld();
  RegistryStore one = Opened(), two = Opened();
  two.Set(Key, "a", Text("2"));
  two.Flush();
  EXPECT_FALSE(one.ChangedElsewhere(Key));
  one.Set(Key, "b", Text("one"));
  one.Refresh();
  EXPECT_TRUE(one.ChangedElsewhere(Key));
  EXPECT_EQ(*one.Query(Key, "a"), Text("2"));
  EXPECT_FALSE(one.ChangedElsewhere(Key));
  one.Set(Key, "a", Text("1"));
  one.Flush();
  EXPECT_EQ(OnDisk().at(Key), (RegistryValues{{"a", Text("1")}, {"b", Text("one")}}));
  folder.Put("registry.reg", "spoilt");
  one.Refresh();
  EXPECT_EQ(*one.Query(Key, "a"), Text("1"));
}

TEST_F(RegistryStoreTest, AReadOnlyStoreWritesNothing) {
  PutOld();
  const std::string before = folder.Content("registry.reg");
  RegistryStore store = Opened(Access::ReadOnly);
  store.Set(Key, "a", Text("2"));
  store.Flush();
  EXPECT_EQ(*store.Query(Key, "a"), Text("2"));
  EXPECT_EQ(folder.Content("registry.reg"), before);
  EXPECT_EQ(folder.Entries(), 1);
}

TEST_F(RegistryStoreTest, AFileThatMakesNoSenseIsSetAside) {
  folder.Put("registry.reg", "garbage");
  try {
    Opened(Access::ReadOnly);
    ADD_FAILURE() << "opened";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), DeviceError);
    EXPECT_THROW(std::rethrow_if_nested(error), RegistryFileError);
  }
  EXPECT_EQ(folder.Content("registry.reg"), "garbage");

  // Each under a name of its own, whatever was set aside before.
  for (const std::string kept : {"registry.reg.bad", "registry.reg.bad-2", "registry.reg.bad-3"}) {
    const std::string garbage = "REGEDIT4\n" + kept;
    folder.Put("registry.reg", garbage + "\ngarbage\"");
    RegistryStore store = Opened();
    EXPECT_TRUE(store.Tree().empty());
    const auto told = store.TakeSetAside();
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].Path + told[0].KeptAs, path + folder.Path(kept));
    EXPECT_EQ(told[0].Why, "line 2: unexpected text");
    EXPECT_TRUE(folder.Content(kept).starts_with(garbage));
    EXPECT_FALSE(folder.Has("registry.reg"));
    EXPECT_TRUE(store.TakeSetAside().empty());
  }
}

TEST_F(RegistryStoreTest, WhatCannotBeReadIsRaisedAndLeftAsItIs) {
  const auto refused = [this] {
    RegistryStore store;
    const int error = ErrorOf([&] { store.Open(path, Access::Shared); });
    EXPECT_NE(error, 0);
    store.CreateKey(Key);
    store.Flush();
    EXPECT_TRUE(store.TakeSetAside().empty());
    return error;
  };
  fs::create_directory(path);
  EXPECT_EQ(refused(), PathFileAccess);
  EXPECT_TRUE(fs::is_empty(path));
  fs::remove(path);
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(refused(), DeviceError);
  fs::remove(path);

  class : public FailingDisk {
   public:
    int Open(const std::string& file, int flags, mode_t mode) override {
      const bool refused = isReadOnly ? (flags & O_CREAT) != 0 : (flags & O_ACCMODE) == O_RDONLY;
      errno = EACCES;
      return refused ? -1 : FailingDisk::Open(file, flags, mode);
    }
    bool isReadOnly = false;
  } disk;  // which a test run by root needs
  const DiskInPlace inPlace(disk);
  PutOld();
  EXPECT_EQ(refused(), PermissionDenied);
  disk.isReadOnly = true;
  RegistryStore store = Opened();
  store.Set(Key, "a", Text("2"));
  EXPECT_EQ(ErrorOf([&] { store.Flush(); }), PermissionDenied);
  folder.Put("registry.reg", "garbage");
  EXPECT_EQ(refused(), DeviceError) << "cannot be set aside either";
  EXPECT_EQ(folder.Content("registry.reg"), "garbage");
  EXPECT_EQ(folder.Entries(), 1);
}

TEST_F(RegistryStoreTest, AFlushSweepsWhatCrashesLeftAndNothingElse) {
  const pid_t ended = ::fork();
  if (ended == 0) ::_exit(0);
  ASSERT_EQ(::waitpid(ended, nullptr, 0), ended);
  const std::string gone = std::to_string(ended), running = std::to_string(::getpid());
  const std::string strays[] = {"registry.reg." + gone + "-1.tmp", "registry.reg." + gone + "-12.tmp"};
  const std::string others[] = {"registry.reg." + running + "-1.tmp",  "registry.reg." + gone + ".tmp",
                                "registry.reg." + gone + "-1.tmp.txt", "registry.reg.bad",
                                "other.reg." + gone + "-1.tmp",        "registry.reg.-" + gone + "-1.tmp"};
  for (const auto& name : strays) folder.Put(name, "");
  for (const auto& name : others) folder.Put(name, "");
  PutOld();
  RegistryStore store = Opened();
  store.Set(Key, "a", Text("2"));
  store.Flush();
  for (const auto& name : strays) EXPECT_FALSE(folder.Has(name)) << name;
  for (const auto& name : others) EXPECT_TRUE(folder.Has(name)) << name;
}

TEST_F(RegistryStoreTest, AFileSpoiltMeanwhileIsSetAsideAndWrittenWhole) {
  PutOld();
  RegistryStore store = Opened();
  folder.Put("registry.reg", "spoilt");
  store.Set(Key, "a", Text("2"));
  store.Flush();
  EXPECT_EQ(folder.Content("registry.reg.bad"), "spoilt");
  EXPECT_EQ(OnDisk().at(Key), (RegistryValues{{"a", Text("2")}, {"b", Text("1")}}));
}

TEST_F(RegistryStoreTest, AFileThatCannotBeReadIsNotTakenForEmpty) {
  PutOld();
  FailingDisk disk;
  const DiskInPlace inPlace(disk);
  for (int n = 1; n == 1 || disk.Failed(); ++n) {
    RegistryStore store;
    disk.FailNth(n);
    const bool opened = ErrorOf([&] { store.Open(path, Access::Shared); }) == 0;
    EXPECT_EQ(opened, !disk.Failed()) << "operation " << n;
  }
}

TEST_F(RegistryStoreTest, EveryFailingStepOfAFlushLeavesTheOldOrTheNewFileAndTheNextMakesUpForIt) {
  FailingDisk disk;
  const DiskInPlace inPlace(disk);
  for (const bool once : {true, false}) {
    for (int n = 1;; ++n) {
      disk.Mend();
      folder.Empty();  // of the litter of a disk that could not even remove
      PutOld();
      const RegistryTree before = OnDisk();
      RegistryStore store = Opened();
      store.Set(Key, "a", Text("2"));
      once ? disk.FailNth(n) : disk.FailFrom(n);
      const bool flushed = ErrorOf([&] { store.Flush(); }) == 0;
      EXPECT_TRUE(flushed || disk.Failed());
      const RegistryTree after = OnDisk();
      EXPECT_TRUE(after == store.Tree() || (after == before && !flushed)) << "operation " << n;
      if (!disk.Failed()) break;
      EXPECT_TRUE(!once || folder.Entries() <= 2) << "operation " << n;  // the file and its lock
      disk.Mend();
      store.Flush();
      EXPECT_EQ(OnDisk(), store.Tree()) << "operation " << n;
    }
  }
}

TEST_F(RegistryStoreTest, AProcessThatEndsInTheMiddleLeavesAWholeFile) {
  FailingDisk disk;
  const DiskInPlace inPlace(disk);
  PutOld();
  RegistryStore old = Opened();
  bool ended = true;
  for (int n = 1; ended; ++n) {
    PutOld();
    RegistryStore store = Opened();
    store.Set(Key, "a", Text("2"));
    const pid_t child = ::fork();
    if (child == 0) {
      disk.EndProcessAt(n);
      store.Flush();
      ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ended = WEXITSTATUS(status) == 0;
    const RegistryTree after = OnDisk();
    EXPECT_TRUE(after == store.Tree() || (after == old.Tree() && ended)) << "operation " << n;
  }
}

}  // namespace
}  // namespace qel
