#include "registry/RegistryStore.h"
#include "registry/RegistryText.h"
#include "settings/SettingsExchange.h"
#include "support/Cases.h"
#include "support/FreshProgram.h"

namespace qel {

namespace {

struct SettingsFileTest : FreshProgram {
  // A file with one value in one key below the program's own.
  static std::string File(const std::string& key, const std::string& value) {
    return "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL" + key + "]\r\n" + value + "\r\n";
  }

  // Why the text is not taken; empty where it is.
  static std::string Complaint(const std::string& content) {
    try {
      ReadSettingsFile(content);
      return "";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  }
};

}  // namespace

TEST_F(SettingsFileTest, WhatOneStoreExportsMakesAnotherTheSame) {
  const std::string every = ReadWholeFile(QEL_SOURCE_DIR "/tests/settings/EveryField.reg");
  store.Open(QEL_SOURCE_DIR "/tests/settings/EveryField.reg", RegistryStore::Access::ReadOnly);
  const std::string exported = ExportedOptions(store);
  EXPECT_EQ(ParseRegistryFile(exported), ParseRegistryFile(every));

  store = {};
  const std::string own = KeyPath(SettingsRoot, SettingsKey), other = own + " Two";
  for (const auto& key : {own + "\\General", other}) {
    store.CreateKey(key);
    store.Set(key, "MaxServices", {REG_DWORD, DwordBytes(99)});
    store.Set(key, "Mine", {REG_SZ, std::string("kept\0", 5)});
  }
  const SettingsFile file = ReadSettingsFile(exported + "[HKEY_CURRENT_USER]\n\"a\"=\"1\"\n");
  EXPECT_EQ(std::tuple(file.Keys, file.Values, file.PassedOver), std::tuple(10, 176, 1));
  ImportOptions(store, file);
  RegistryTree wanted = ParseRegistryFile(every);
  for (const auto& key : {own + "\\General", other}) wanted[key]["Mine"] = {REG_SZ, std::string("kept\0", 5)};
  wanted[other]["MaxServices"] = {REG_DWORD, DwordBytes(99)};
  EXPECT_EQ(store.Tree(), wanted);
}

TEST_F(SettingsFileTest, WhatHoldsNoSettingsIsNotTaken) {
  const std::string foreign = "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\QELX]\r\n@=\"1\"\r\n";
  for (const std::string& none : {std::string(), foreign, File("\\General", "")})
    EXPECT_EQ(Complaint(none), "it holds no settings of QEL");
  EXPECT_TRUE(Complaint("no settings").starts_with("line 1: "));
}

TEST_F(SettingsFileTest, ValuesThatTheProgramCouldNotLoadAreRefused) {
  for (const auto& [key, value, why] : Cases<3>("settings/SettingsValues"))
    EXPECT_EQ(Complaint(File(key, value)), why) << value;
}

}  // namespace qel
