#include "settings/Settings.h"

#include "core/CurrencyFormat.h"
#include "core/EndProgram.h"
#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "platform/CodePage.h"
#include "platform/Host.h"
#include "settings/SettingsTables.h"

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

// The key that reading and writing named last.
std::string keyName;

void OpenKey(const char* below) {
  keyName = std::string(SettingsKey) + below;
  CreatNewKey(keyName, SettingsRoot);
}

void Load(const Setting& setting) {
  Attempt([&] { LoadSetting(keyName, setting.Name, setting.As, setting.Place); });
}

void Store(const Setting& setting) {
  Attempt([&] { StoreSetting(keyName, setting.Name, setting.As, setting.Place); });
}

void LoadKey(const char* below, const char* step, std::span<const Setting> settings) {
  StepTrace = step;
  OpenKey(below);
  for (const auto& setting : settings) Load(setting);
}

void StoreKey(const char* below, const char* step, std::span<const Setting> settings) {
  StepTrace = step;
  OpenKey(below);
  for (const auto& setting : settings) Store(setting);
}

void FillDefaults(std::span<const Setting> settings) {
  for (const auto& setting : settings) {
    if (setting.Default.index() == 0 || !IsMissing(setting)) continue;
    SetDefault(setting);
    if (setting.Dirty) SettingsDirty = true;
  }
}

void ReadGeneral() {
  LoadKey("\\General", "Read General", GeneralSettings());
  StepTrace = "Read Boolean";
  for (const auto& setting : BooleanSettings()) Load(setting);
  // The array of services is made now, so its size cannot wait for the other defaults.
  for (const auto& setting : GeneralSettings())
    if (setting.Place == SettingPlace(&MaxServices)) FillDefaults({&setting, 1});
  Attempt([] { Services.Make(MaxServices); });
}

void ReadReportWindow() {
  LoadKey("\\ViewReport", "View Report Settings", ViewReportTable());
  LoadKey("\\ViewReport\\SummaryReport", (StepTrace + "-Summary").c_str(), SummaryReportTable());
  LoadKey("\\ViewReport\\DetailReport", "View Report Settings-Detail", DetailReportTable());
  Attempt([] { LoadSetting(keyName, "ForceAMPM", StoredAs::Whole, &ForceAMPM); });
}

void ReadRecentFiles() {
  for (std::size_t i = 0; i < RecentFiles.size(); ++i) {
    StepTrace = "Read Recent Files";
    OpenKey("\\RecentFiles");
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
  StepTrace = "Write General";
  OpenKey("\\General");
  for (const std::string_view name : GeneralStoreOrder()) {
    if (name == "ShowGraphic" && !GraphicsAvailable) continue;
    for (const auto table : {GeneralSettings(), BooleanSettings()})
      for (const auto& setting : table)
        if (name == setting.Name) Store(setting);
  }
}

void WriteModem() {
  for (const auto& setting : ModemSettings()) {
    std::string& marker = *std::get<std::string*>(setting.Place);
    marker = UpperCase(marker);
  }
  StoreKey("\\Modem", "Write Modem", ModemSettings());
}

void WriteWindowSettings() {
  if (ViewLogSettings.SaveSettings) StoreKey("\\ViewLog", "Write View Log Settings", ViewLogTable());
  if (SaveReportSettings) {
    StoreKey("\\ViewReport", "Write View Report Settings", ViewReportTable());
    StoreKey("\\ViewReport\\SummaryReport", "Write ViewReport Settings - Summary", SummaryReportTable());
    StoreKey("\\ViewReport\\DetailReport", "Write ViewReport Settings - Detail", DetailReportTable());
  }
  Attempt([] { StoreSetting(keyName, "ForceAMPM", StoredAs::Whole, &ForceAMPM); });
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
  StepTrace = "Read Services";
  OpenKey("\\Services");
  ReadServices();
  LoadKey("\\ViewLog", "View Log Settings", ViewLogTable());
  ReadReportWindow();
  StepTrace = "Read Holidays";
  OpenKey("\\Holidays");
  ReadHolidays();
  ReadRecentFiles();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void FillMissingSettings() {
  FillDefaults(GeneralSettings());
  FillDefaults(BooleanSettings());
  FillDefaults(ModemSettings());
  FillCosts();
  FillWindowSettings();
  BuildTimeFormat();
}

bool SettleMissingLogPath() {
  if (!ModemLogFile.empty()) return false;
  const bool known = !ActiveLogFile.empty();
  ModemLogFile = known ? ActiveLogFile : DefaultLogFile;
  ModemLogDir = known ? ActiveLogDir : DefaultLogDir;
  SettingsDirty = true;
  return true;
}

void BuildTimeFormat() {
  TimeFormat = ForceAMPM ? "h" + TimeSeparator + "mm" + TimeSeparator + "ss AMPM" : "Long Time";
}

void WriteUserParameters() {
  SetTrace("Registry_Functions", "WriteUserParameters");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CurrentHost().Yield();
  WriteGeneral();
  WriteModem();
  StepTrace = "Write Services";
  OpenKey("\\Services");
  WriteServices();
  StoreKey("\\Costs", "Write Default Costs", CostSettings());
  WriteWindowSettings();
  StepTrace = "Write Holidays";
  OpenKey("\\Holidays");
  WriteHolidays();
  SaveRegistry();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void WriteSaveSettings(const char* below, Option& saveSettings) {
  OpenKey(below);
  Store({"SaveSettings", StoredAs::Word, &saveSettings});
  SaveRegistry();
}

void StoreGeneralValue(const std::string& valueName, const SettingValue& value, RegistryType type) {
  const std::string key = std::string(SettingsKey) + "\\General";
  CreatNewKey(key, SettingsRoot);
  SetKeyValue(SettingsRoot, key, valueName, value, type);
  SaveRegistry();
}

void RestoreModemDefaults() { SetDefaults(ModemSettings()); }
void RestoreViewLogDefaults() { SetDefaults(ViewLogTable()); }

}  // namespace qel
