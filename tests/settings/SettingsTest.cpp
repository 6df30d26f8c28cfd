#include <algorithm>

#include "registry/RegistryText.h"
#include "settings/SettingsExchange.h"
#include "settings/StoredValues.h"
#include "settings/UserParameters.h"
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
std::string Fields(const Settings& s, const WindowSettings& w) {
  const ViewLogRecord& v = w.ViewLogSettings;
  std::string all = All(s.ModemLogFile, s.ModemLogDir, s.MaxServices, s.UsedServices, s.MaxConnections,
                        s.MaxConnectDays, s.NoDisconDuration, s.NoDisconData, s.MaxLogSize, s.PreferredModem,
                        s.UserStartPref, s.UserStartDate, s.UserStartOfWeek, s.UserStartOfMonth,
                        s.UserReportPref, w.MainWinWidth, w.MainWinHeight) +
                    All(s.EditLog, s.ShowErrors, s.ShowToolbars, s.FlatToolbars, s.ShowGraphic,
                        s.AutoOptimize, s.ModemCheck, s.Tips) +
                    All(s.ModemDial, s.ModemAnswer, s.ModemConnect, s.ModemUserDisconnect,
                        s.ModemHostDisconnect, s.ModemReads, s.ModemWrites) +
                    All(s.CalcCosts, s.DialCost, s.CostPerHour, s.CostPerMeg) +
                    All(v.SaveSettings, v.FontName, v.FontSize, v.FontBold, v.FontItalic, v.WinHeight,
                        v.WinWidth, v.WinState) +
                    All(w.SaveReportSettings, w.ReportListView, w.ReportAutoArrange, s.ForceAMPM) +
                    Fields(w.SummaryViewSettings) + Fields(w.DetailViewSettings) +
                    All(s.UsedHolidays, s.Holidays[0], s.Holidays[1], s.WarningSoundFile);
  for (const RecentFile& f : w.RecentFiles) all += All(f.RecentFileName, f.RecentFilePath, f.RecentFileType);
  for (int i = 0; i < s.UsedServices; ++i) {
    all += Fields(s.Services[i]);
    for (int k = 0; k < s.Services[i].UsedTariffs; ++k) all += Fields(s.Services[i].Tariffs[k]);
  }
  return all;
}

}  // namespace

struct SettingsTest : FreshProgram {
  void StoreAndRestart() {
    session->StoreSettings();
    session->LoadSettings();
  }
  std::string Stored(const std::string& key, const std::string& name) const {
    return TextOf(QueryValue(store, SettingsRoot, key, name));
  }
};

TEST_F(SettingsTest, AFirstRunHasTheDefaults) {
  EXPECT_EQ(Fields(settings, windowSettings),
            ReadWholeFile(QEL_SOURCE_DIR "/tests/settings/Defaults.memory"));
}

TEST_F(SettingsTest, NoDisconDataOfZeroMakesEveryStartDirty) {
  settings.CostPerMeg = 0.05;
  for (const int data : {0, 7}) {
    settings.GraphicsAvailable = true;  // without it ShowGraphic is never stored
    windowSettings.ViewLogSettings.SaveSettings = true;
    settings.NoDisconData = data;
    StoreAndRestart();
    EXPECT_EQ(settings.SettingsDirty, data == 0);
  }
}

TEST_F(SettingsTest, WindowSettingsAreStoredOnlyWhileTheyAreToBeSaved) {
  const std::tuple<bool, bool, const char*> cases[] = {
      {false, false, "\\Costs"}, {true, false, "\\ViewLog"}, {true, true, "\\ViewReport\\DetailReport"}};
  for (const auto& [viewer, report, key] : cases) {
    settings.ForceAMPM = true;
    windowSettings.ViewLogSettings.SaveSettings = viewer;
    windowSettings.SaveReportSettings = report;
    session->StoreSettings();
    EXPECT_EQ(Stored(SettingsKey + std::string(key), "ForceAMPM"), "-1") << key;
  }
  windowSettings.ViewLogSettings.SaveSettings = windowSettings.SaveReportSettings = Option(false);
  StoreAndRestart();
  EXPECT_TRUE(windowSettings.ViewLogSettings.SaveSettings && windowSettings.SaveReportSettings);
}

TEST_F(SettingsTest, EveryFieldHasItsOwnPlaceInMemoryAndInTheStore) {
  const std::string file = ReadWholeFile(QEL_SOURCE_DIR "/tests/settings/EveryField.reg");
  folder.Put("registry.reg", file);
  store.Open(folder.Path("registry.reg"), RegistryStore::Access::Shared);
  session->LoadSettings();
  EXPECT_EQ(Fields(settings, windowSettings),
            ReadWholeFile(QEL_SOURCE_DIR "/tests/settings/EveryField.memory"));
  EXPECT_TRUE(host.messages.empty());

  settings.GraphicsAvailable = true;
  store.Open(folder.Path("second.reg"), RegistryStore::Access::Shared);
  session->StoreSettings();
  std::string stored = folder.Content("second.reg");
  std::erase(stored, '\r');
  EXPECT_EQ(stored, file.substr(0, file.find("; what is read with the rest")));
}

TEST_F(SettingsTest, WhatOtherProgramsStoreMeanwhileStays) {
  AddService("Ours", "1", "");
  const std::string path = folder.Path("registry.reg"), root = KeyPath(SettingsRoot, SettingsKey);
  store.Open(path, RegistryStore::Access::Shared);
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
    settings.MaxConnectDays = days;
    settings.Services[0].PerMeg = days;
    session->StoreSettings();
  }
  const std::string before = folder.Content("registry.reg");
  EXPECT_EQ(settings.UsedServices, 1) << "not before the user edits services";
  TakeUpOthersRecords(store, settings);
  EXPECT_EQ(std::tuple(settings.MaxConnections, settings.UsedServices, settings.Services[1].ServiceName,
                       settings.Holidays[0]),
            std::tuple(200, 2, "Theirs", 36519));
  AddService("Ours too", "3", "");
  session->LoadSettings();
  EXPECT_EQ(folder.Content("registry.reg"), before);
  EXPECT_EQ(std::tuple(settings.MaxConnections, settings.MaxConnectDays, settings.UsedServices,
                       settings.Services[0].PerMeg, settings.Services[1].ServiceName),
            std::tuple(300, 4, 2, 4.0, "Theirs"));
  TakeUpOthersRecords(store, settings);
  AddService("Ours too", "3", "");
  StoreAndRestart();
  EXPECT_EQ(settings.Services[1].ServiceName + ", " + settings.Services[2].ServiceName, "Theirs, Ours too");
}

// Three programs, one at a time in this process: each has the settings that it knew when it was last at work.
TEST_F(SettingsTest, ThreeProgramsThatAddInTurnKeepAllThatWasAdded) {
  using Program = std::pair<RegistryStore, Settings>;
  const std::string path = folder.Path("registry.reg");
  store.Open(path, RegistryStore::Access::Shared);
  AddService("first", "1", "").PerMeg = 1;
  settings.UsedHolidays = 2;
  settings.Holidays[0] = 36500;
  settings.Holidays[1] = 36510;
  StoreAndRestart();
  std::vector<Program> programs(3, {store, settings});
  const auto change = [this](Program& program) {
    std::swap(store, program.first);
    std::swap(settings, program.second);
  };
  for (int step = 0; step < 6; ++step) {
    Program& program = programs[static_cast<std::size_t>(step) % 3];
    change(program);
    AddService("step " + std::to_string(step), "1", "").PerMeg = 10 + step;
    settings.Holidays[settings.UsedHolidays] = 36501 + 2 * step;
    ++settings.UsedHolidays;
    if (step == 4) settings.Holidays[0] = settings.Holidays[1];  // the first one goes
    session->StoreSettings();
    session->StoreSettings();
    change(program);
  }
  // One deletes a service while others have added some, and chooses a sound.
  change(programs[1]);
  for (int i = 1; i < settings.UsedServices; ++i) settings.Services[i - 1] = settings.Services[i];
  --settings.UsedServices;
  settings.WarningSoundFile = "a.wav";
  session->StoreSettings();
  // Another that knows nothing of it stores something else.
  change(programs[2]);
  settings.MaxConnectDays = 7;
  session->StoreSettings();
  store.Open(path, RegistryStore::Access::Shared);
  session->LoadSettings();
  std::string all;
  for (int i = 0; i < settings.UsedServices; ++i)
    all += All(settings.Services[i].ServiceName, settings.Services[i].PerMeg);
  EXPECT_EQ(all, "step 0 10\nstep 1 11\nstep 2 12\nstep 3 13\nstep 4 14\nstep 5 15\n");
  EXPECT_EQ(settings.WarningSoundFile, "a.wav");
  all.clear();
  for (int i = 0; i < settings.UsedHolidays; ++i) all += NumberText(settings.Holidays[i]) + " ";
  EXPECT_EQ(all, "36501 36503 36505 36507 36509 36510 36511 ");
}

TEST_F(SettingsTest, AValueNameThatTwoServicesShareLosesNeither) {
  const std::string services = std::string(SettingsKey) + "\\Services";
  const auto rates = [this] {
    std::string all;
    for (int i = 0; i < settings.UsedServices; ++i)
      all += All(settings.Services[i].FlexRate, settings.Services[i].FlexRate2);
    return all;
  };
  settings.MaxServices = 250;
  settings.Services.Make(settings.MaxServices);
  for (int i = 1; i <= 230; ++i) {
    ServiceRecord& service = AddService("S", "1", "");
    service.FlexRate = i;
    service.FlexRate2 = 1000 + i;
  }
  const std::string before = rates();
  for (const int used : {230, 21, 20}) {
    settings.UsedServices = used;
    StoreAndRestart();
    EXPECT_EQ(rates(), before.substr(0, rates().size())) << used;
    EXPECT_EQ(Stored(services, "FlexRate21"), used > 20 ? "210000" : "10010000") << "as it always was";
    EXPECT_EQ(Stored(services, "FlexRate2-1"), used > 20 ? "10010000" : "");
    EXPECT_EQ(Stored(services, "FlexRate2-2"), used > 21 ? "10020000" : "");
  }
  // A file of a program that knows no other names.
  settings.UsedServices = 21;
  StoreAndRestart();
  const std::string root = KeyPath(SettingsRoot, SettingsKey);
  ImportOptions(store, {.Own = {{root + "\\Services", {{"FlexRate21", {REG_DWORD, DwordBytes(70000)}}}}}});
  session->LoadSettings();
  EXPECT_EQ(std::tuple(settings.Services[0].FlexRate2, settings.Services[20].FlexRate), std::tuple(7, 7));
}

TEST_F(SettingsTest, AServiceAddedElsewhereSparesTheRateThatSharesItsName) {
  const std::string path = folder.Path("registry.reg");
  store.Open(path, RegistryStore::Access::Shared);
  settings.MaxServices = 30;
  settings.Services.Make(settings.MaxServices);
  for (int i = 1; i <= 20; ++i) AddService("S", "1", "").FlexRate2 = i;
  StoreAndRestart();
  const RegistryStore others = store;
  for (const int services : {21, 20}) {
    if (services > settings.UsedServices)
      AddService("S", "1", "").FlexRate = 70;
    else
      settings.UsedServices = services;
    session->StoreSettings();
    std::tie(store, settings.UsedServices) = std::tuple(others, 20);  // a program that has not heard of it
    settings.MaxConnectDays = services;
    session->StoreSettings();
    store.Open(path, RegistryStore::Access::Shared);
    session->LoadSettings();
    EXPECT_EQ(
        std::tuple(settings.UsedServices, settings.Services[0].FlexRate2, settings.Services[20].FlexRate),
        std::tuple(services, 1, services == 21 ? 70 : 0));
  }
}

TEST_F(SettingsTest, WhatFindsNoRoomIsStoredAgain) {
  settings.MaxServices = 20;
  settings.Services.Make(settings.MaxServices);
  for (int i = 1; i <= 14; ++i) AddService("S" + std::to_string(i), "1", "").PerMeg = i;
  settings.Services[12].UsedTariffs = 10;
  settings.WarningSoundFile = "a.wav";
  settings.UsedHolidays = 100;
  session->StoreSettings();
  const std::string root = SettingsKey, general = root + "\\General", services = root + "\\Services",
                    days = root + "\\Holidays";
  const auto put = [this](const std::string& key, const std::string& name, int value) {
    SetKeyValue(store, SettingsRoot, key, name, Int32(value), REG_DWORD);
  };
  const auto limit = [&](int most) { put(general, "MaxServices", most); };
  put(services, "UsedTariffs13", 12);
  for (const int k : {11, 12}) put(services, "Tariff13-" + std::to_string(k) + "After", k);
  put(days, "UsedHolidays", 101);
  put(days, " 101", 36519);
  limit(10);
  session->LoadSettings();
  EXPECT_EQ(std::tuple(settings.UsedServices, settings.UsedHolidays, settings.WarningSoundFile),
            std::tuple(11, 100, "a.wav"));
  session->StoreSettings();
  EXPECT_EQ(
      Stored(general, "UsedServices") + Stored(services, "UsedTariffs13") + Stored(days, "UsedHolidays"),
      "1412101");
  --settings.UsedServices;  // the last one in sight is deleted
  session->StoreSettings();
  limit(20);
  session->LoadSettings();
  EXPECT_EQ(
      std::tuple(settings.UsedServices, settings.Services[9].ServiceName, settings.Services[10].ServiceName),
      std::tuple(13, "S10", "S12"));
  EXPECT_EQ(std::tuple(settings.Services[11].PerMeg, settings.Services[12].PerMeg, settings.WarningSoundFile),
            std::tuple(13, 14, "a.wav"));
  EXPECT_EQ(Stored(services, "UsedTariffs12"), "12");
  EXPECT_EQ(Stored(services, "Tariff12-12After"), "12");
}

TEST(SaveRegistry, ThatItCannotWriteIsToldOnce) {
  const TemporaryFolder folder;
  RegistryStore store;
  store.Open(folder.Path("none/registry.reg"), RegistryStore::Access::Shared);
  store.CreateKey("HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL");
  folder.Put("none", "");
  testing::internal::CaptureStderr();
  SaveRegistry(store);
  SaveRegistry(store);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "qel: the settings could not be written: Path not found\n");
}

}  // namespace qel
