// Settings between memory and the store: loaded once at the start, stored again as a whole.
#pragma once

#include <string>

#include "core/Places.h"
#include "registry/RegistryStore.h"
#include "settings/Settings.h"
#include "settings/StoredValues.h"

namespace qel {

// Loads everything from the store, creating the keys on the way, and sizes `Services`. Sets SettingsDirty
// where MaxServices was missing. A value that does not convert goes to the error handler, and the rest still
// loads.
void ReadUserParameters(RegistryStore& store, Settings& settings, WindowSettings& windowSettings);

// Takes up the services and holidays as other programs have stored them since, so that what the user adds to
// them goes behind what is there. For a moment in which nothing of them is being edited.
void TakeUpOthersRecords(RegistryStore& store, Settings& settings);

// Fills every missing option but the log's path with its default, setting SettingsDirty for those that must
// be stored at once.
void FillMissingSettings(Settings& settings, WindowSettings& windowSettings);

// Where no log is set, takes the system's active log, or else the default one. True when it did.
bool SettleMissingLogPath(Settings& settings, const Places& places);

// Stores everything and brings it to the disk. The viewer's and the report window's settings go only with
// their own SaveSettings on, and ForceAMPM follows into whichever key was named last. Markers become
// capitals.
void WriteUserParameters(RegistryStore& store, Settings& settings, WindowSettings& windowSettings);

// Stores the SaveSettings of a window alone, under the window's key ("\\ViewLog", "\\ViewReport"), so that
// switching it off is itself remembered.
void WriteSaveSettings(RegistryStore& store, const char* below, Option& saveSettings);

// Stores one value of "\\General" apart from the others, and brings it to the disk.
void StoreGeneralValue(RegistryStore& store, const std::string& valueName, const SettingValue& value,
                       RegistryType type);

// The seven marker texts of the modem, and the viewer's settings, by default.
void RestoreModemDefaults(Settings& settings);
void RestoreViewLogDefaults(ViewLogRecord& viewLogSettings);

}  // namespace qel
