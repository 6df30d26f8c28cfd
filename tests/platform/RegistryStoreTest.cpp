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
  for (const std::string key : {"", "SOFTWARE\\QEL", "HKEY_X\\\\A", "HKEY_X\\a\nb"})
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

  RegistryStore store = Opened();
  EXPECT_TRUE(store.Tree().empty());
  EXPECT_EQ(folder.Content("registry.reg.bad"), "garbage");
  EXPECT_FALSE(folder.Has("registry.reg"));
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
