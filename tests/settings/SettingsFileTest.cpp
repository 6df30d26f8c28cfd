#include "platform/RegistryFile.h"
#include "settings/SettingsFile.h"
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
  ServiceRecord& service = AddService("Caf\xE9 \"A\"", "1", "11");
  service.UsedTariffs = 1;
  service.Tariffs[0].AppliesTimeEnd = TimeSerial(23, 59, 0);
  UsedHolidays = 1;
  Holidays[0] = DateSerial(1999, 12, 25);
  ViewLogSettings.SaveSettings = GraphicsAvailable = true;
  RecentFiles[0] = {"a.qel", "/b/", "A"};
  WriteUserParameters();
  const std::string exported = ExportedOptions();

  Registry.Reset();
  const std::string own = KeyPath(SettingsRoot, SettingsKey), other = own + " Two";
  for (const auto& key : {own + "\\General", other}) {
    Registry.CreateKey(key);
    Registry.Set(key, "MaxServices", {REG_DWORD, DwordBytes(99)});
    Registry.Set(key, "Mine", {REG_SZ, std::string("kept\0", 5)});
  }
  const SettingsFile file = ReadSettingsFile(exported);
  ImportOptions(file);
  EXPECT_EQ(DwordOf(Registry.Query(own + "\\General", "MaxServices")->Data), 10u);
  EXPECT_EQ(DwordOf(Registry.Query(other, "MaxServices")->Data), 99u);
  EXPECT_NE(Registry.Query(own + "\\General", "Mine"), nullptr);
  Registry.DeleteValue(own + "\\General", "Mine");
  EXPECT_EQ(ExportedOptions(), exported);
  EXPECT_EQ(file.PassedOver, 0);
}

TEST_F(SettingsFileTest, OnlyTheProgramsKeysAreTakenAndTheOthersCounted) {
  const std::string foreign =
      "[HKEY_CURRENT_USER\\Control "
      "Panel]\r\n\"a\"=\"1\"\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\QELX]\r\n@=\"1\"\r\n";
  const SettingsFile file = ReadSettingsFile(File("", "\"a\"=\"1\"") + foreign);
  EXPECT_EQ(file.Own.size(), 3u) << "with the two keys above it";
  EXPECT_EQ(std::tuple(file.Values, file.Keys, file.PassedOver), std::tuple(1, 1, 2));
  for (const std::string& none : {std::string(), "REGEDIT4\r\n" + foreign, File("\\General", "")})
    EXPECT_EQ(Complaint(none), "it holds no settings of QEL");
  EXPECT_TRUE(Complaint("no settings").starts_with("line 1: "));
}

TEST_F(SettingsFileTest, ValuesThatTheProgramCouldNotLoadAreRefused) {
  const struct {
    const char *key, *good, *bad;
  } cases[] = {
      {"\\General", "\"MaxServices\"=dword:00000014", "\"maxservices\"=\"20\""},
      {"\\General", "\"MaxServices\"=dword:00007fff", "\"MaxServices\"=dword:00008000"},
      {"\\general", "\"EditLog\"=\"False\"", "\"EditLog\"=\"maybe\""},
      {"\\Modem", "\"ModemDial\"=\"ATD\"", "\"ModemDial\"=dword:00000001"},
      {"\\Costs", "\"DialCost\"=dword:000007d0", "\"DialCost\"=hex:d0,07,00,00"},
      {"\\ViewLog", "\"ForceAMPM\"=dword:ffffffff", "\"ForceAMPM\"=\"True\""},
      {"\\ViewReport\\DetailReport", "\"Column6\"=dword:00000001", "\"Column6\"=\"1\""},
      {"\\RecentFiles", "\"RecentFileName1\"=\"a\"", "\"RecentFileName1\"=dword:00000001"},
      {"\\Services", "\"ServiceRate12\"=dword:00000001", "\"ServiceRate12\"=\"0.5\""},
      {"\\Services", "\"FreeEnd1\"=\"6:00:00 AM\"", "\"FreeEnd1\"=\"soon\""},
      {"\\Services", "\"Tariff1-10UnitMins\"=dword:00000001", "\"Tariff1-10UnitMins\"=\"1\""},
      {"\\Services", "\"Tariff1-2AppliesTimeEnd\"=\"\"", "\"Tariff1-2AppliesTimeEnd\"=\"25:00\""},
      {"\\Holidays", "\" 1\"=dword:00008ea7", "\" 1\"=\"12/25/1999\""},
      {"\\Holidays", "\"UsedHolidays\"=dword:00000004", "\"UsedHolidays\"=hex(2):00"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Complaint(File(c.key, c.good)), "");
    EXPECT_NE(Complaint(File(c.key, c.bad)), "") << c.bad;
  }
  EXPECT_EQ(Complaint(File("\\General", cases[0].bad)),
            "\"maxservices\" in HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\General: Type mismatch");
  EXPECT_EQ(Complaint(File("\\General", "\"Unknown\"=hex(7):00")), "");
}

}  // namespace qel
