#include "support/FreshProgram.h"

namespace qel {

struct SettingsTest : FreshProgram {
  std::string Content(const std::string& key) {
    std::string content;
    for (const auto& name : Registry.ValueNames(KeyPath(SettingsRoot, SettingsKey + key)))
      content += name + "=" + TextOf(QueryValue(SettingsRoot, SettingsKey + key, name)) + ";";
    return content;
  }
  void StoreAndRestart() {
    WriteUserParameters();
    ResetSettings();
    SettingsDirty = false;
    ReadUserParameters();
    FillMissingSettings();
  }
};

TEST_F(SettingsTest, AFirstRunStoresTheDefaults) {
  WriteUserParameters();
  EXPECT_EQ(
      Content("\\General"),
      "AutoOptimize=False;EditLog=True;FlatToolbars=True;MaxConnectDays=2;MaxConnections=200;MaxLogSize="
      "150;MaxServices=10;ModemCheck=True;ModemLogDir=;ModemLogFile=;NoDisconData=0;NoDisconDuration="
      "900;ShowErrors=True;ShowToolbars=True;Tips=True;UsedServices=0;UserReportPref=0;UserStartDate=0;"
      "UserStartOfMonth=0;UserStartOfWeek=0;UserStartPref=Last Log Entry;");
  EXPECT_EQ(Content("\\Costs"), "CalcCosts=True;CostPerHour=15000;CostPerMeg=0;DialCost=2000;");
  EXPECT_EQ(Content("\\Services") + Content("\\ViewLog"), "WarningSoundFile1=;");
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
    EXPECT_NE(Content(key).find("ForceAMPM=-1;"), std::string::npos) << key;
  }
  ViewLogSettings.SaveSettings = SaveReportSettings = Option(false);
  StoreAndRestart();
  EXPECT_TRUE(ViewLogSettings.SaveSettings && SaveReportSettings);
}

TEST_F(SettingsTest, ServicesComeBackByTheirNumberedNames) {
  AddService("One", "1", "");
  ServiceRecord& two = AddService("Two", "2", "22");
  two.UsedTariffs = 2;
  two.Tariffs[1].After = 120;
  two.Tariffs[1].AppliesTimeEnd = TimeSerial(23, 59, 0);
  two.AfterMeg = 2.5;
  two.PerMeg = 0.00125;
  UsedHolidays = 1;
  Holidays[0] = DateSerial(1999, 12, 25);
  WarningSoundFile = "a.wav";
  StoreAndRestart();
  for (const char* value : {"ServiceName2=Two;", "Tariff2-2After=120;", "AfterMeg2=2;", "PerMeg2=12;"})
    EXPECT_NE(Content("\\Services").find(value), std::string::npos) << value;
  EXPECT_EQ(Content("\\Holidays"), " 1=36519;UsedHolidays=1;");
  EXPECT_TRUE(Content("\\Services").ends_with("WarningSoundFile3=a.wav;"));
  EXPECT_EQ(Services[1].Tariffs[1].AppliesTimeEnd, TimeSerial(23, 59, 0));
  EXPECT_EQ(std::tuple(WarningSoundFile, Holidays[0]), std::tuple("a.wav", DateSerial(1999, 12, 25)));
}

TEST_F(SettingsTest, CountsBeyondTheirArraysAreReportedAndTheRestLoads) {
  UsedServices = 12;
  Services[10].ServiceName = "Last";
  Services[0].UsedTariffs = 11;
  UsedHolidays = 101;
  StoreAndRestart();
  EXPECT_EQ(host.messages.size(), 12u) << "three errors, on storing and on loading, each told twice";
  EXPECT_NE(host.clipboard.find("Error code: 9\r"), std::string::npos);
  EXPECT_EQ(Services[10].ServiceName, "Last");
  EXPECT_EQ(std::tuple(UsedServices, Services[0].UsedTariffs, UsedHolidays), std::tuple(11, 10, 100));
}

}  // namespace qel
