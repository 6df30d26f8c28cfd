// Services, tariffs and holidays between memory and the store, under numbered value names.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "registry/RegistryStore.h"
#include "settings/Settings.h"

namespace qel {

// Load and store the records by their numbered value names. Part of ReadUserParameters and
// WriteUserParameters; a missing value is empty. A count beyond its array raises 9 to the error handler, and
// becomes what there is room for; the other records are kept beyond the array and stored behind those in it.
void ReadServices(RegistryStore& store, Settings& settings);
void ReadHolidays(RegistryStore& store, Settings& settings);
void WriteServices(RegistryStore& store, Settings& settings);
void WriteHolidays(RegistryStore& store, Settings& settings);

// Before storing: where the user has added or removed something here, and other programs have stored more of
// it since, both are kept. Services that others added stay under their numbers, and those added here go
// behind them; holidays come into the order of their dates. What finds no room goes beyond the array.
void MergeServices(RegistryStore& store, Settings& settings);
void MergeHolidays(RegistryStore& store, Settings& settings);

// UsedServices as it is stored: with the services that found no room.
Int16 StoredServiceCount(const Settings& settings);

// The unambiguous name of a value whose name ("FlexRate21") the values of two services share; it stands
// beside that name, and counts, where there are so many services. Nothing for any other name.
std::optional<std::string> OwnNameBeside(std::string_view name);

// How the value of a name is stored in the key of the services or of the holidays; nothing for a name that
// stands for no value there.
std::optional<SettingForm> FormOfService(std::string_view name);
std::optional<SettingForm> FormOfHoliday(std::string_view name);

}  // namespace qel
