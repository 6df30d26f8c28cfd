#include "settings/UserParameters.h"

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "settings/ServiceStore.h"
#include "settings/SettingsTables.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// Makes the key where it is missing; its name in the program's root.
std::string OpenKey(RegistryStore& store, const char* below) {
  const std::string keyName = std::string(SettingsKey) + below;
  CreatNewKey(store, keyName, SettingsRoot);
  return keyName;
}

template <class Record>
void Load(RegistryStore& store, const std::string& keyName, const SettingRow<Record>& row, Record& record) {
  Attempt([&] { LoadSetting(store, keyName, row.Name, row.As, row.PlaceIn(record)); });
}

template <class Record>
void Store(RegistryStore& store, const std::string& keyName, const SettingRow<Record>& row, Record& record) {
  Attempt([&] {
    const bool isEmpty = row.OnlyWhereSet && IsMissing(row.PlaceIn(record)) &&
                         QueryValue(store, SettingsRoot, keyName, row.Name).index() == 0;
    if (!isEmpty) StoreSetting(store, keyName, row.Name, row.As, row.PlaceIn(record));
  });
}

// These two give the name of the key.
template <class Record>
std::string LoadKey(RegistryStore& store, const char* below, const std::string& step,
                    std::span<const SettingRow<Record>> rows, Record& record) {
  TraceStep(step);
  const std::string keyName = OpenKey(store, below);
  for (const auto& row : rows) Load(store, keyName, row, record);
  return keyName;
}

template <class Record>
std::string StoreKey(RegistryStore& store, const char* below, const char* step,
                     std::span<const SettingRow<Record>> rows, Record& record) {
  TraceStep(step);
  const std::string keyName = OpenKey(store, below);
  for (const auto& row : rows) Store(store, keyName, row, record);
  return keyName;
}

// Whether a default was filled in that must be stored.
template <class Record>
bool FillDefaults(std::span<const SettingRow<Record>> rows, Record& record) {
  bool dirty = false;
  for (const auto& row : rows) {
    if (row.Default.index() == 0 || !IsMissing(row.PlaceIn(record))) continue;
    SetDefault(row.PlaceIn(record), row.Default);
    dirty = dirty || row.Dirty;
  }
  return dirty;
}

template <class Record>
void SetDefaults(std::span<const SettingRow<Record>> rows, Record& record) {
  for (const auto& row : rows) SetDefault(row.PlaceIn(record), row.Default);
}

bool IsRowOf(const SettingRow<Settings>& row, Settings& settings, const SettingPlace& place) {
  return row.PlaceIn(settings) == place;
}

// The array of services is made now, so its size cannot wait for the other defaults.
void MakeServices(Settings& settings) {
  for (const auto& row : GeneralSettings())
    if (IsRowOf(row, settings, &settings.MaxServices) &&
        FillDefaults(std::span<const SettingRow<Settings>>(&row, 1), settings))
      settings.SettingsDirty = true;
  Attempt([&] { settings.Services.Make(settings.MaxServices); });
}

void ReadGeneral(RegistryStore& store, Settings& settings, WindowSettings& windowSettings) {
  const std::string keyName = LoadKey(store, "\\General", "Read General", GeneralSettings(), settings);
  for (const auto& row : MainWindowTable()) Load(store, keyName, row, windowSettings);
  TraceStep("Read Boolean");
  for (const auto& row : BooleanSettings()) Load(store, keyName, row, settings);
  MakeServices(settings);
}

void ReadReportWindow(RegistryStore& store, Settings& settings, WindowSettings& windowSettings) {
  LoadKey(store, "\\ViewReport", "View Report Settings", ViewReportTable(), windowSettings);
  LoadKey(store, "\\ViewReport\\SummaryReport", CurrentSurroundings().StepTrace + "-Summary",
          SummaryReportTable(), windowSettings.SummaryViewSettings);
  const std::string keyName = LoadKey(store, "\\ViewReport\\DetailReport", "View Report Settings-Detail",
                                      DetailReportTable(), windowSettings.DetailViewSettings);
  Load(store, keyName, AnyKeySetting(), settings);
}

void ReadRecentFiles(RegistryStore& store, WindowSettings& windowSettings) {
  for (std::size_t i = 0; i < windowSettings.RecentFiles.size(); ++i) {
    TraceStep("Read Recent Files");
    const std::string keyName = OpenKey(store, "\\RecentFiles"), number = std::to_string(i + 1);
    RecentFile& file = windowSettings.RecentFiles[i];
    LoadSetting(store, keyName, "RecentFileName" + number, StoredAs::Text, &file.RecentFileName);
    LoadSetting(store, keyName, "RecentFilePath" + number, StoredAs::Text, &file.RecentFilePath);
    LoadSetting(store, keyName, "RecentFileType" + number, StoredAs::Text, &file.RecentFileType);
  }
}

// Whether a default was filled in. They come by the window: its first setting tells whether it has any.
bool FillWindowSettings(Settings& settings, WindowSettings& windowSettings) {
  const bool noViewLog = windowSettings.ViewLogSettings.FontName.empty();
  if (noViewLog) RestoreViewLogDefaults(windowSettings.ViewLogSettings);
  const bool noReport = windowSettings.SummaryViewSettings.WinHeight == 0;
  if (noReport) {
    SetDefaults(ViewReportTable(), windowSettings);
    SetDefaults(SummaryReportTable(), windowSettings.SummaryViewSettings);
    SetDefaults(DetailReportTable(), windowSettings.DetailViewSettings);
    settings.ForceAMPM = false;
  }
  return noViewLog || noReport;
}

void WriteGeneral(RegistryStore& store, Settings& settings) {
  TraceStep("Write General");
  const std::string keyName = OpenKey(store, "\\General");
  Int16 services = StoredServiceCount(settings);
  for (const std::string_view name : GeneralStoreOrder()) {
    if (name == "ShowGraphic" && !settings.GraphicsAvailable) continue;
    for (const auto table : {GeneralSettings(), BooleanSettings()})
      for (const auto& row : table) {
        if (name != row.Name) continue;
        const bool counted = IsRowOf(row, settings, &settings.UsedServices);
        const SettingPlace place = counted ? &services : row.PlaceIn(settings);
        Attempt([&] { StoreSetting(store, keyName, row.Name, row.As, place); });
      }
  }
}

void WriteModem(RegistryStore& store, Settings& settings) {
  for (const auto& row : ModemSettings()) {
    std::string& marker = *std::get<std::string*>(row.PlaceIn(settings));
    marker = UpperCase(marker);
  }
  StoreKey(store, "\\Modem", "Write Modem", ModemSettings(), settings);
}

// ForceAMPM goes to the key that was named last, which was `lastKey` before.
void WriteWindowSettings(RegistryStore& store, Settings& settings, WindowSettings& windowSettings,
                         std::string lastKey) {
  if (windowSettings.ViewLogSettings.SaveSettings)
    lastKey = StoreKey(store, "\\ViewLog", "Write View Log Settings", ViewLogTable(),
                       windowSettings.ViewLogSettings);
  if (windowSettings.SaveReportSettings) {
    StoreKey(store, "\\ViewReport", "Write View Report Settings", ViewReportTable(), windowSettings);
    StoreKey(store, "\\ViewReport\\SummaryReport", "Write ViewReport Settings - Summary",
             SummaryReportTable(), windowSettings.SummaryViewSettings);
    lastKey = StoreKey(store, "\\ViewReport\\DetailReport", "Write ViewReport Settings - Detail",
                       DetailReportTable(), windowSettings.DetailViewSettings);
  }
  StoreSetting(store, lastKey, AnyKeySetting().Name, AnyKeySetting().As, &settings.ForceAMPM);
}

}  // namespace

void ReadUserParameters(RegistryStore& store, Settings& settings, WindowSettings& windowSettings) {
  SetTrace("Registry_Functions", "ReadUserParameters");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CurrentHost().Yield();
  ReadGeneral(store, settings, windowSettings);
  LoadKey(store, "\\Modem", "Read Modem", ModemSettings(), settings);
  LoadKey(store, "\\Costs", "Read Default Costs", CostSettings(), settings);
  TraceStep("Read Services");
  OpenKey(store, "\\Services");
  ReadServices(store, settings);
  LoadKey(store, "\\ViewLog", "View Log Settings", ViewLogTable(), windowSettings.ViewLogSettings);
  ReadReportWindow(store, settings, windowSettings);
  TraceStep("Read Holidays");
  OpenKey(store, "\\Holidays");
  ReadHolidays(store, settings);
  ReadRecentFiles(store, windowSettings);
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void TakeUpOthersRecords(RegistryStore& store, Settings& settings) {
  SetTrace("Registry_Functions", "TakeUpOthersRecords");
  store.Refresh();
  const std::string root = KeyPath(SettingsRoot, SettingsKey);
  const auto isNew = [&](const char* name) {
    const auto [ours, now] = store.VersionsOf(root + "\\General", name);
    return now && (!ours || *ours != *now);
  };
  if (store.ChangedElsewhere(root + "\\Services") || isNew("UsedServices")) {
    const std::string keyName = OpenKey(store, "\\General");
    for (const auto& row : GeneralSettings())
      if (IsRowOf(row, settings, &settings.UsedServices) ||
          (IsRowOf(row, settings, &settings.MaxServices) && isNew(row.Name)))
        Load(store, keyName, row, settings);
    MakeServices(settings);
    ReadServices(store, settings);
  }
  if (store.ChangedElsewhere(root + "\\Holidays")) ReadHolidays(store, settings);
}

bool SettleMissingLogPath(Settings& settings, const Places& places) {
  if (!settings.ModemLogFile.empty()) return false;
  const bool known = !places.ActiveLogFile.empty();
  settings.ModemLogFile = known ? places.ActiveLogFile : places.DefaultLogFile;
  settings.ModemLogDir = known ? places.ActiveLogDir : places.DefaultLogDir;
  settings.SettingsDirty = true;
  return true;
}

// The default costs go with a missing CalcCosts only: beside a stored one a cost of zero is meant so.
void FillMissingSettings(Settings& settings, WindowSettings& windowSettings) {
  const auto costs = settings.CalcCosts.Given() ? CostSettings().last(1) : CostSettings();
  for (const auto table : {GeneralSettings(), BooleanSettings(), ModemSettings(), costs})
    if (FillDefaults(table, settings)) settings.SettingsDirty = true;
  if (FillWindowSettings(settings, windowSettings)) settings.SettingsDirty = true;
}

void WriteUserParameters(RegistryStore& store, Settings& settings, WindowSettings& windowSettings) {
  SetTrace("Registry_Functions", "WriteUserParameters");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CurrentHost().Yield();
  store.Refresh();
  MergeServices(store, settings);
  MergeHolidays(store, settings);
  WriteGeneral(store, settings);
  WriteModem(store, settings);
  TraceStep("Write Services");
  OpenKey(store, "\\Services");
  WriteServices(store, settings);
  WriteWindowSettings(store, settings, windowSettings,
                      StoreKey(store, "\\Costs", "Write Default Costs", CostSettings(), settings));
  TraceStep("Write Holidays");
  OpenKey(store, "\\Holidays");
  WriteHolidays(store, settings);
  SaveRegistry(store);
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void WriteSaveSettings(RegistryStore& store, const char* below, Option& saveSettings) {
  SetTrace("Registry_Functions", "WriteSaveSettings");
  const std::string keyName = OpenKey(store, below);
  Attempt([&] { StoreSetting(store, keyName, "SaveSettings", StoredAs::Word, &saveSettings); });
  SaveRegistry(store);
}

void StoreGeneralValue(RegistryStore& store, const std::string& valueName, const SettingValue& value,
                       RegistryType type) {
  SetTrace("Registry_Functions", "StoreGeneralValue");
  SetKeyValue(store, SettingsRoot, OpenKey(store, "\\General"), valueName, value, type);
  SaveRegistry(store);
}

void RestoreModemDefaults(Settings& settings) { SetDefaults(ModemSettings(), settings); }
void RestoreViewLogDefaults(ViewLogRecord& viewLogSettings) { SetDefaults(ViewLogTable(), viewLogSettings); }

}  // namespace qel
