#include <algorithm>

#include "registry/RegistryText.h"
#include "settings/Registry_Functions.h"
#include "settings/SettingsFile.h"
#include "support/FreshProgram.h"
#include "values/DateText.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

template <class Value>
std::string Shown(const Value& value) {
  if constexpr (std::is_same_v<Value, bool> || std::is_same_v<Value, Option>)
    return value ? "yes" : "no";
  else if constexpr (std::is_convertible_v<Value, std::string>)
    return value;
  else
    return NumberText(value);
}

template <class... Values>
std::string All(const Values&... values) {
  std::string all;
  ((all += (all.empty() ? "" : " ") + Shown(values)), ...);
  return all + "\n";
}

// Every field by its own name, in the order of its record.
std::string Fields(const ServiceRecord& s) {
  return All(s.ServiceName, s.ServiceNumber, s.ServiceAltNumber, s.DialOption, s.DialFixedTariff,
             s.UsedTariffs, s.ServiceOption, s.ServiceRate, s.FlexRate, s.UpToHours, s.PenaltyPeriod,
             s.FlexRate2, s.PerMeg, s.AfterMeg, s.MegPeriod, s.Block, s.FreePeriod, DateText(s.FreeStart),
             DateText(s.FreeEnd), s.MaxCharge, s.ShowWarnings, s.WarningOption, s.WarningHours,
             s.WarningMinutes, s.WarningDialup, s.WarningService, s.WarningData, s.WarningDisplay,
             s.WarningSound);
}
std::string Fields(const TariffRecord& t) {
  return All(t.Description, t.AppliesDays, DateText(t.AppliesTimeStart), DateText(t.AppliesTimeEnd),
             t.DialRate, t.PerMinuteRate, t.After, t.Unit, t.UnitMins, t.UnitSecs);
}
std::string Fields(const ReportViewSettings& r) {
  const auto& c = r.Column;
  return All(r.WinHeight, r.WinWidth, r.WinLeft, r.WinTop, r.FontSize, c[0], c[1], c[2], c[3], c[4], c[5],
             c[6]);
}
std::string Fields() {
  const ViewLogRecord& v = ViewLogSettings;
  std::string all =
      All(ModemLogFile, ModemLogDir, MaxServices, UsedServices, MaxConnections, MaxConnectDays,
          NoDisconDuration, NoDisconData, MaxLogSize, PreferredModem, UserStartPref, UserStartDate,
          UserStartOfWeek, UserStartOfMonth, UserReportPref, MainWinWidth, MainWinHeight) +
      All(EditLog, ShowErrors, ShowToolbars, FlatToolbars, ShowGraphic, AutoOptimize, ModemCheck, Tips) +
      All(ModemDial, ModemAnswer, ModemConnect, ModemUserDisconnect, ModemHostDisconnect, ModemReads,
          ModemWrites) +
      All(CalcCosts, DialCost, CostPerHour, CostPerMeg) +
      All(v.SaveSettings, v.FontName, v.FontSize, v.FontBold, v.FontItalic, v.WinHeight, v.WinWidth,
          v.WinState) +
      All(SaveReportSettings, ReportListView, ReportAutoArrange, ForceAMPM) + Fields(SummaryViewSettings) +
      Fields(DetailViewSettings) + All(UsedHolidays, Holidays[0], Holidays[1], WarningSoundFile);
  for (const RecentFile& f : RecentFiles) all += All(f.RecentFileName, f.RecentFilePath, f.RecentFileType);
  for (int i = 0; i < UsedServices; ++i) {
    all += Fields(Services[i]);
    for (int k = 0; k < Services[i].UsedTariffs; ++k) all += Fields(Services[i].Tariffs[k]);
  }
  return all;
}

}  // namespace

struct SettingsTest : FreshProgram {
  void StoreAndRestart() {
    WriteUserParameters();
    Restart();
  }
  static void Restart() {
    ResetSettings();
    SettingsDirty = false;
    ReadUserParameters();
    FillMissingSettings();
  }
};

TEST_F(SettingsTest, AFirstRunHasTheDefaults) {
  EXPECT_EQ(Fields(), ReadWholeFile(QEL_SOURCE_DIR "/tests/settings/Defaults.memory"));
}

TEST_F(SettingsTest, NoDisconDataOfZeroMakesEveryStartDirty) {
  CostPerMeg = 0.05;
  for (const int data : {0, 7}) {
    GraphicsAvailable = true;  // without it ShowGraphic is never stored
    ViewLogSettings.SaveSettings = true;
    NoDisconData = data;
    StoreAndRestart();
    EXPECT_EQ(SettingsDirty, data == 0);
  }
}

TEST_F(SettingsTest, WindowSettingsAreStoredOnlyWhileTheyAreToBeSaved) {
  const std::tuple<bool, bool, const char*> cases[] = {
      {false, false, "\\Costs"}, {true, false, "\\ViewLog"}, {true, true, "\\ViewReport\\DetailReport"}};
  for (const auto& [viewer, report, key] : cases) {
    ForceAMPM = true;
    ViewLogSettings.SaveSettings = viewer;
    SaveReportSettings = report;
    WriteUserParameters();
    EXPECT_EQ(TextOf(QueryValue(SettingsRoot, SettingsKey + std::string(key), "ForceAMPM")), "-1") << key;
  }
  ViewLogSettings.SaveSettings = SaveReportSettings = Option(false);
  StoreAndRestart();
  EXPECT_TRUE(ViewLogSettings.SaveSettings && SaveReportSettings);
}

TEST_F(SettingsTest, EveryFieldHasItsOwnPlaceInMemoryAndInTheStore) {
  const std::string file = ReadWholeFile(QEL_SOURCE_DIR "/tests/settings/EveryField.reg");
  folder.Put("registry.reg", file);
  Registry.Open(folder.Path("registry.reg"), RegistryStore::Access::Shared);
  Restart();
  EXPECT_EQ(Fields(), ReadWholeFile(QEL_SOURCE_DIR "/tests/settings/EveryField.memory"));
  EXPECT_TRUE(host.messages.empty());

  GraphicsAvailable = true;
  Registry.Open(folder.Path("second.reg"), RegistryStore::Access::Shared);
  WriteUserParameters();
  std::string stored = folder.Content("second.reg");
  std::erase(stored, '\r');
  EXPECT_EQ(stored, file.substr(0, file.find("; what is read with the rest")));
}

TEST_F(SettingsTest, WhatOtherProgramsStoreMeanwhileStays) {
  AddService("Ours", "1", "");
  const std::string path = folder.Path("registry.reg"), root = KeyPath(SettingsRoot, SettingsKey);
  Registry.Open(path, RegistryStore::Access::Shared);
  StoreAndRestart();
  const auto storeElsewhere = [&](int services, const std::string& name, int connections, int holiday) {
    const auto number = [](int value) { return RegistryValue{REG_DWORD, DwordBytes(std::uint32_t(value))}; };
    RegistryStore other;
    other.Open(path, RegistryStore::Access::Shared);
    other.Set(root + "\\General", "MaxConnections", number(connections));
    other.Set(root + "\\General", "UsedServices", number(services));
    other.Set(root + "\\Services", "ServiceName" + std::to_string(services), {REG_SZ, name + '\0'});
    other.Set(root + "\\Holidays", "UsedHolidays", number(1));
    other.Set(root + "\\Holidays", " 1", number(holiday));
    other.Flush();
  };
  storeElsewhere(2, "Theirs", 300, 36519);
  for (const int days : {3, 4}) {
    MaxConnectDays = days;
    Services[0].PerMeg = days;
    WriteUserParameters();
  }
  const std::string before = folder.Content("registry.reg");
  EXPECT_EQ(UsedServices, 1) << "not before the user edits services";
  TakeUpOthersRecords();
  EXPECT_EQ(std::tuple(MaxConnections, UsedServices, Services[1].ServiceName, Holidays[0]),
            std::tuple(200, 2, "Theirs", 36519));
  AddService("Ours too", "3", "");
  Restart();
  EXPECT_EQ(folder.Content("registry.reg"), before);
  EXPECT_EQ(
      std::tuple(MaxConnections, MaxConnectDays, UsedServices, Services[0].PerMeg, Services[1].ServiceName),
      std::tuple(300, 4, 2, 4.0, "Theirs"));
  TakeUpOthersRecords();
  AddService("Ours too", "3", "");
  StoreAndRestart();
  EXPECT_EQ(Services[1].ServiceName + ", " + Services[2].ServiceName, "Theirs, Ours too");
}

// Three programs, one at a time in this process: each has the settings that it knew when it was last at work.
TEST_F(SettingsTest, ThreeProgramsThatAddInTurnKeepAllThatWasAdded) {
  struct Program {
    RegistryStore Store;
    BoundedArray<ServiceRecord> Services;
    BoundedArray<Date> Holidays;
    Int16 UsedServices, UsedHolidays;
  };
  const std::string path = folder.Path("registry.reg");
  Registry.Open(path, RegistryStore::Access::Shared);
  AddService("first", "1", "").PerMeg = 1;
  UsedHolidays = 2;
  Holidays[0] = 36500;
  Holidays[1] = 36510;
  StoreAndRestart();
  std::vector<Program> programs(3, {Registry, Services, Holidays, UsedServices, UsedHolidays});
  const auto change = [](Program& program) {
    std::swap(Registry, program.Store);
    std::swap(Services, program.Services);
    std::swap(Holidays, program.Holidays);
    std::swap(UsedServices, program.UsedServices);
    std::swap(UsedHolidays, program.UsedHolidays);
  };
  for (int step = 0; step < 6; ++step) {
    Program& program = programs[static_cast<std::size_t>(step) % 3];
    change(program);
    AddService("step " + std::to_string(step), "1", "").PerMeg = 10 + step;
    Holidays[UsedHolidays] = 36501 + 2 * step;
    ++UsedHolidays;
    if (step == 4) Holidays[0] = Holidays[1];  // the first one goes
    WriteUserParameters();
    WriteUserParameters();
    change(program);
  }
  // One deletes a service while others have added some, and chooses a sound.
  change(programs[1]);
  for (int i = 1; i < UsedServices; ++i) Services[i - 1] = Services[i];
  --UsedServices;
  WarningSoundFile = "a.wav";
  WriteUserParameters();
  // Another that knows nothing of it stores something else.
  change(programs[2]);
  WarningSoundFile.clear();
  MaxConnectDays = 7;
  WriteUserParameters();
  Registry.Open(path, RegistryStore::Access::Shared);
  Restart();
  std::string all;
  for (int i = 0; i < UsedServices; ++i) all += All(Services[i].ServiceName, Services[i].PerMeg);
  EXPECT_EQ(all, "step 0 10\nstep 1 11\nstep 2 12\nstep 3 13\nstep 4 14\nstep 5 15\n");
  EXPECT_EQ(WarningSoundFile, "a.wav");
  all.clear();
  for (int i = 0; i < UsedHolidays; ++i) all += NumberText(Holidays[i]) + " ";
  EXPECT_EQ(all, "36501 36503 36505 36507 36509 36510 36511 ");
}

TEST_F(SettingsTest, AValueNameThatTwoServicesShareLosesNeither) {
  const auto rates = [] {
    std::string all;
    for (int i = 0; i < UsedServices; ++i) all += All(Services[i].FlexRate, Services[i].FlexRate2);
    return all;
  };
  const auto stored = [](const std::string& name) {
    return TextOf(QueryValue(SettingsRoot, std::string(SettingsKey) + "\\Services", name));
  };
  MaxServices = 250;
  Services.Make(MaxServices);
  for (int i = 1; i <= 230; ++i) {
    ServiceRecord& service = AddService("S", "1", "");
    service.FlexRate = i;
    service.FlexRate2 = 1000 + i;
  }
  const std::string before = rates();
  for (const int used : {230, 21, 20}) {
    UsedServices = used;
    StoreAndRestart();
    EXPECT_EQ(rates(), before.substr(0, rates().size())) << used;
    EXPECT_EQ(stored("FlexRate21"), used > 20 ? "210000" : "10010000") << "as it always was";
    EXPECT_EQ(stored("FlexRate2-1"), used > 20 ? "10010000" : "");
    EXPECT_EQ(stored("FlexRate2-2"), used > 21 ? "10020000" : "");
  }
  // A file of a program that knows no other names.
  UsedServices = 21;
  StoreAndRestart();
  const std::string root = KeyPath(SettingsRoot, SettingsKey);
  ImportOptions({.Own = {{root + "\\Services", {{"FlexRate21", {REG_DWORD, DwordBytes(70000)}}}}}});
  Restart();
  EXPECT_EQ(std::tuple(Services[0].FlexRate2, Services[20].FlexRate), std::tuple(7, 7));
}

TEST_F(SettingsTest, AServiceAddedElsewhereSparesTheRateThatSharesItsName) {
  const std::string path = folder.Path("registry.reg");
  Registry.Open(path, RegistryStore::Access::Shared);
  MaxServices = 30;
  Services.Make(MaxServices);
  for (int i = 1; i <= 20; ++i) AddService("S", "1", "").FlexRate2 = i;
  StoreAndRestart();
  const RegistryStore store = Registry;
  for (const int services : {21, 20}) {
    if (services > UsedServices)
      AddService("S", "1", "").FlexRate = 70;
    else
      UsedServices = services;
    WriteUserParameters();
    std::tie(Registry, UsedServices) = std::tuple(store, 20);  // another program, which has not heard of it
    MaxConnectDays = services;
    WriteUserParameters();
    Registry.Open(path, RegistryStore::Access::Shared);
    Restart();
    EXPECT_EQ(std::tuple(UsedServices, Services[0].FlexRate2, Services[20].FlexRate),
              std::tuple(services, 1, services == 21 ? 70 : 0));
  }
}

TEST_F(SettingsTest, WhatFindsNoRoomIsStoredAgain) {
  MaxServices = 20;
  Services.Make(MaxServices);
  for (int i = 1; i <= 14; ++i) AddService("S" + std::to_string(i), "1", "").PerMeg = i;
  Services[12].UsedTariffs = 10;
  WarningSoundFile = "a.wav";
  UsedHolidays = 100;
  WriteUserParameters();
  const std::string root = SettingsKey, general = root + "\\General", services = root + "\\Services",
                    days = root + "\\Holidays";
  const auto store = [](const std::string& key, const std::string& name, int value) {
    SetKeyValue(SettingsRoot, key, name, Int32(value), REG_DWORD);
  };
  const auto limit = [&](int most) { store(general, "MaxServices", most); };
  store(services, "UsedTariffs13", 12);
  for (const int k : {11, 12}) store(services, "Tariff13-" + std::to_string(k) + "After", k);
  store(days, "UsedHolidays", 101);
  store(days, " 101", 36519);
  limit(10);
  Restart();
  EXPECT_EQ(std::tuple(UsedServices, UsedHolidays, WarningSoundFile), std::tuple(11, 100, "a.wav"));
  const auto stored = [&](const std::string& key, const std::string& name) {
    return TextOf(QueryValue(SettingsRoot, key, name));
  };
  WriteUserParameters();
  EXPECT_EQ(
      stored(general, "UsedServices") + stored(services, "UsedTariffs13") + stored(days, "UsedHolidays"),
      "1412101");
  --UsedServices;  // the last one in sight is deleted
  WriteUserParameters();
  limit(20);
  Restart();
  EXPECT_EQ(std::tuple(UsedServices, Services[9].ServiceName, Services[10].ServiceName),
            std::tuple(13, "S10", "S12"));
  EXPECT_EQ(std::tuple(Services[11].PerMeg, Services[12].PerMeg, WarningSoundFile),
            std::tuple(13, 14, "a.wav"));
  EXPECT_EQ(stored(services, "UsedTariffs12"), "12");
  EXPECT_EQ(stored(services, "Tariff12-12After"), "12");
}

TEST(SaveRegistry, ThatItCannotWriteIsToldOnce) {
  const TemporaryFolder folder;
  Registry.Open(folder.Path("none/registry.reg"), RegistryStore::Access::Shared);
  Registry.CreateKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL");
  folder.Put("none", "");
  testing::internal::CaptureStderr();
  SaveRegistry();
  SaveRegistry();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "qel: the settings could not be written: Path not found\n");
  Registry.Reset();
}

}  // namespace qel
