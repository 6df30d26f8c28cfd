#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "platform/Files.h"
#include "registry/RegistryStore.h"
#include "registry/RegistryText.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/FailingDisk.h"
#include "support/TemporaryFolder.h"

namespace qel {
namespace {

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

// Programs that share the file: "reader" only reads, the others take turns.
class SharedStores : public RegistryStoreTest {
 protected:
  void Do(const std::string& who, RegistryStore& store, const std::string& what, const std::string& name,
          const std::string& text) {
    const std::size_t last = name.rfind('\\');
    const std::string below = last == std::string::npos ? "" : "\\" + name.substr(0, last);
    if (what == "set" && !store.Set(Key + below, name.substr(last + 1), Text(text)))
      Tell(who + " has no " + name.substr(0, last));
    if (what == "read") {
      const RegistryValue* value = store.Query(Key + "\\", name);
      Tell(who + " " + name + (value ? "=" + value->Data.substr(0, value->Data.size() - 1) : " is missing"));
    }
    if (what == "names") Tell(who + Joined(ValueNames(store)));
    if (what == "keys") Tell(who + Joined(KeyNames(store)));
    if (what == "key") store.CreateKey(Key + "\\" + name);
    if (what == "drop") store.DeleteKey(name == "QEL" ? Key : Key + "\\" + name);
    if (what == "delete") store.DeleteValue(Key, name);
    if (what == "changed")
      Tell(who +
           (store.ChangedElsewhere(Key + (name.empty() ? "" : "\\" + name)) ? " changed" : " unchanged"));
    if (what == "spoil") folder.Put("registry.reg", "spoilt");
    if (what == "open") store.Open(path, Access::Shared);
    if (what == "refresh") store.Refresh();
    if (what == "flush") store.Flush();
  }

  void TellFile() {
    std::string file = "file";
    if (folder.Content("registry.reg") == "spoilt") return Tell(file + " spoilt");
    for (const auto& [key, values] : OnDisk()) {
      if (key.size() > Key.size()) file += " [" + key.substr(Key.size() + 1) + "]";
      for (const auto& [name, value] : values) file += " " + name + "=" + value.Data.c_str();
    }
    Tell(file + (folder.Content("registry.reg.bad") == "spoilt" ? ", beside it registry.reg.bad" : ""));
  }

  std::string told;

 private:
  void Tell(const std::string& what) { told += (told.empty() ? "" : "; ") + what; }
  static Names ValueNames(const RegistryStore& store) {
    Names names;
    if (const auto key = store.Tree().find(Key); key != store.Tree().end())
      for (const auto& [name, value] : key->second) names.push_back(name);
    return names;
  }
  static Names KeyNames(const RegistryStore& store) {
    Names names;
    for (const auto& [path, values] : KeysBelow(store.Tree(), Key))
      if (path.find(KeySeparator, Key.size() + 1) == std::string::npos)
        names.push_back(path.substr(Key.size() + 1));
    return names;
  }
  static std::string Joined(const Names& names) {
    std::string joined;
    for (const std::string& name : names) joined += " " + name;
    return joined;
  }
};

TEST_F(SharedStores, LoseNoneOfEachOthersChanges) {
  for (const auto& [steps, wanted] : Cases<2>("registry/SharedStores")) {
    folder.Empty();
    PutOld();
    told.clear();
    std::map<std::string, RegistryStore> stores;
    for (const char* who : {"one", "two", "three"}) stores[who].Open(path, Access::Shared);
    stores["reader"].Open(path, Access::ReadOnly);
    std::istringstream all(steps);
    for (std::string step; std::getline(all, step, ';');) {
      std::string who, what, name, text;
      std::istringstream(step) >> who >> what >> name >> text;
      Do(who, stores[who], what, name, text);
    }
    TellFile();
    EXPECT_EQ(told, wanted) << steps;
  }
}

TEST_F(RegistryStoreTest, ANameHoldsNoZeroByte) {
  RegistryStore store;
  store.CreateKey(Key);
  EXPECT_EQ(ErrorOf([&] { store.Set(Key, std::string("a\0b", 3), Text("1")); }), InvalidCall);
  EXPECT_THROW(store.CreateKey("HKEY_X\\a\nb"), RunTimeError);
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
      EXPECT_EQ(store.FlushFailed(), !flushed);
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

}  // namespace
}  // namespace qel
