#include "settings/Settings.h"

#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "core/Surroundings.h"
#include "settings/Registry_Functions.h"
#include "settings/SettingsTables.h"
#include "values/CodePage.h"

namespace qel {

std::string ModemLogFile, ModemLogDir;
Int16 MaxServices, UsedServices, MaxConnections, MaxConnectDays;
double NoDisconDuration = 0, NoDisconData = 0;
Int32 MaxLogSize;
Int16 PreferredModem;
std::string UserStartPref;
Date UserStartDate = 0;
Int16 UserStartOfWeek, UserStartOfMonth, UserReportPref;
Int32 MainWinWidth, MainWinHeight;
Option EditLog, ShowErrors, ShowToolbars, FlatToolbars, ShowGraphic, AutoOptimize, ModemCheck, Tips;
bool GraphicsAvailable = false;

std::string ModemDial, ModemAnswer, ModemConnect, ModemUserDisconnect, ModemHostDisconnect, ModemReads,
    ModemWrites;

Option CalcCosts;
double DialCost = 0, CostPerHour = 0, CostPerMeg = 0;

ViewLogRecord ViewLogSettings;
ReportViewSettings SummaryViewSettings, DetailViewSettings;
Option SaveReportSettings, ReportListView, ReportAutoArrange;
bool ForceAMPM = false;
std::array<RecentFile, 5> RecentFiles;

namespace {

// Makes the key where it is missing; its name in the program's root.
std::string OpenKey(const char* below) {
  const std::string keyName = std::string(SettingsKey) + below;
  CreatNewKey(keyName, SettingsRoot);
  return keyName;
}

void Load(const std::string& keyName, const Setting& setting) {
  Attempt([&] { LoadSetting(keyName, setting.Name, setting.As, setting.Place); });
}

void Store(const std::string& keyName, const Setting& setting) {
  Attempt([&] { StoreSetting(keyName, setting.Name, setting.As, setting.Place); });
}

// These two give the name of the key.
std::string LoadKey(const char* below, const std::string& step, std::span<const Setting> settings) {
  TraceStep(step);
  const std::string keyName = OpenKey(below);
  for (const auto& setting : settings) Load(keyName, setting);
  return keyName;
}

std::string StoreKey(const char* below, const char* step, std::span<const Setting> settings) {
  TraceStep(step);
  const std::string keyName = OpenKey(below);
  for (const auto& setting : settings) Store(keyName, setting);
  return keyName;
}

void FillDefaults(std::span<const Setting> settings) {
  for (const auto& setting : settings) {
    if (setting.Default.index() == 0 || !IsMissing(setting)) continue;
    SetDefault(setting);
    if (setting.Dirty) SettingsDirty = true;
  }
}

// The array of services is made now, so its size cannot wait for the other defaults.
void MakeServices() {
  for (const auto& setting : GeneralSettings())
    if (setting.Place == SettingPlace(&MaxServices)) FillDefaults({&setting, 1});
  Attempt([] { Services.Make(MaxServices); });
}

void ReadGeneral() {
  const std::string keyName = LoadKey("\\General", "Read General", GeneralSettings());
  TraceStep("Read Boolean");
  for (const auto& setting : BooleanSettings()) Load(keyName, setting);
  MakeServices();
}

void ReadReportWindow() {
  LoadKey("\\ViewReport", "View Report Settings", ViewReportTable());
  LoadKey("\\ViewReport\\SummaryReport", CurrentSurroundings().StepTrace + "-Summary", SummaryReportTable());
  const std::string keyName =
      LoadKey("\\ViewReport\\DetailReport", "View Report Settings-Detail", DetailReportTable());
  Attempt([&] { LoadSetting(keyName, "ForceAMPM", StoredAs::Whole, &ForceAMPM); });
}

void ReadRecentFiles() {
  for (std::size_t i = 0; i < RecentFiles.size(); ++i) {
    TraceStep("Read Recent Files");
    const std::string keyName = OpenKey("\\RecentFiles");
    const std::string number = std::to_string(i + 1);
    LoadSetting(keyName, "RecentFileName" + number, StoredAs::Text, &RecentFiles[i].RecentFileName);
    LoadSetting(keyName, "RecentFilePath" + number, StoredAs::Text, &RecentFiles[i].RecentFilePath);
    LoadSetting(keyName, "RecentFileType" + number, StoredAs::Text, &RecentFiles[i].RecentFileType);
  }
}

void SetDefaults(std::span<const Setting> settings) {
  for (const auto& setting : settings) SetDefault(setting);
}

// The default costs go with a missing CalcCosts only: beside a stored one a cost of zero is meant so.
void FillCosts() { FillDefaults(CalcCosts.Given() ? CostSettings().last(1) : CostSettings()); }

void FillWindowSettings() {
  if (ViewLogSettings.FontName.empty()) {
    SetDefaults(ViewLogTable());
    SettingsDirty = true;
  }
  if (SummaryViewSettings.WinHeight == 0) {
    SetDefaults(ViewReportTable());
    SetDefaults(SummaryReportTable());
    SetDefaults(DetailReportTable());
    ForceAMPM = false;
    SettingsDirty = true;
  }
}

void WriteGeneral() {
  TraceStep("Write General");
  const std::string keyName = OpenKey("\\General");
  Int16 services = StoredServiceCount();
  for (const std::string_view name : GeneralStoreOrder()) {
    if (name == "ShowGraphic" && !GraphicsAvailable) continue;
    for (const auto table : {GeneralSettings(), BooleanSettings()})
      for (Setting setting : table) {
        if (name != setting.Name) continue;
        if (setting.Place == SettingPlace(&UsedServices)) setting.Place = &services;
        Store(keyName, setting);
      }
  }
}

void WriteModem() {
  for (const auto& setting : ModemSettings()) {
    std::string& marker = *std::get<std::string*>(setting.Place);
    marker = UpperCase(marker);
  }
  StoreKey("\\Modem", "Write Modem", ModemSettings());
}

// ForceAMPM goes to the key that was named last, which was `lastKey` before.
void WriteWindowSettings(std::string lastKey) {
  if (ViewLogSettings.SaveSettings)
    lastKey = StoreKey("\\ViewLog", "Write View Log Settings", ViewLogTable());
  if (SaveReportSettings) {
    StoreKey("\\ViewReport", "Write View Report Settings", ViewReportTable());
    StoreKey("\\ViewReport\\SummaryReport", "Write ViewReport Settings - Summary", SummaryReportTable());
    lastKey =
        StoreKey("\\ViewReport\\DetailReport", "Write ViewReport Settings - Detail", DetailReportTable());
  }
  StoreSetting(lastKey, "ForceAMPM", StoredAs::Whole, &ForceAMPM);
}

}  // namespace

void ResetSettings() {
  for (const auto table : {GeneralSettings(), BooleanSettings(), ModemSettings(), CostSettings()})
    for (const auto& setting : table)
      std::visit([](auto* place) { *place = std::remove_cvref_t<decltype(*place)>(); }, setting.Place);
  GraphicsAvailable = false;
  ViewLogSettings = {};
  SummaryViewSettings = {};
  DetailViewSettings = {};
  SaveReportSettings = ReportListView = ReportAutoArrange = Option();
  ForceAMPM = false;
  RecentFiles = {};
  ResetServiceRecords();
}

void ReadUserParameters() {
  SetTrace("Registry_Functions", "ReadUserParameters");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CurrentHost().Yield();
  ReadGeneral();
  LoadKey("\\Modem", "Read Modem", ModemSettings());
  LoadKey("\\Costs", "Read Default Costs", CostSettings());
  TraceStep("Read Services");
  OpenKey("\\Services");
  ReadServices();
  LoadKey("\\ViewLog", "View Log Settings", ViewLogTable());
  ReadReportWindow();
  TraceStep("Read Holidays");
  OpenKey("\\Holidays");
  ReadHolidays();
  ReadRecentFiles();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void TakeUpOthersRecords() {
  SetTrace("Registry_Functions", "TakeUpOthersRecords");
  Registry.Refresh();
  const std::string root = KeyPath(SettingsRoot, SettingsKey);
  const auto isNew = [&](const char* name) {
    const auto [ours, now] = Registry.VersionsOf(root + "\\General", name);
    return now && (!ours || *ours != *now);
  };
  if (Registry.ChangedElsewhere(root + "\\Services") || isNew("UsedServices")) {
    const std::string keyName = OpenKey("\\General");
    for (const auto& setting : GeneralSettings())
      if (setting.Place == SettingPlace(&UsedServices) ||
          (setting.Place == SettingPlace(&MaxServices) && isNew(setting.Name)))
        Load(keyName, setting);
    MakeServices();
    ReadServices();
  }
  if (Registry.ChangedElsewhere(root + "\\Holidays")) ReadHolidays();
}

void FillMissingSettings() {
  FillDefaults(GeneralSettings());
  FillDefaults(BooleanSettings());
  FillDefaults(ModemSettings());
  FillCosts();
  FillWindowSettings();
}

bool SettleMissingLogPath() {
  if (!ModemLogFile.empty()) return false;
  const bool known = !ActiveLogFile.empty();
  ModemLogFile = known ? ActiveLogFile : DefaultLogFile;
  ModemLogDir = known ? ActiveLogDir : DefaultLogDir;
  SettingsDirty = true;
  return true;
}

void WriteUserParameters() {
  SetTrace("Registry_Functions", "WriteUserParameters");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CurrentHost().Yield();
  Registry.Refresh();
  MergeServices();
  MergeHolidays();
  WriteGeneral();
  WriteModem();
  TraceStep("Write Services");
  OpenKey("\\Services");
  WriteServices();
  WriteWindowSettings(StoreKey("\\Costs", "Write Default Costs", CostSettings()));
  TraceStep("Write Holidays");
  OpenKey("\\Holidays");
  WriteHolidays();
  SaveRegistry();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void WriteSaveSettings(const char* below, Option& saveSettings) {
  SetTrace("Registry_Functions", "WriteSaveSettings");
  Store(OpenKey(below), {"SaveSettings", StoredAs::Word, &saveSettings});
  SaveRegistry();
}

void StoreGeneralValue(const std::string& valueName, const SettingValue& value, RegistryType type) {
  SetTrace("Registry_Functions", "StoreGeneralValue");
  SetKeyValue(SettingsRoot, OpenKey("\\General"), valueName, value, type);
  SaveRegistry();
}

void RestoreModemDefaults() { SetDefaults(ModemSettings()); }
void RestoreViewLogDefaults() { SetDefaults(ViewLogTable()); }

}  // namespace qel
