// A thin layer over the registry store. Each call opens its key, works and closes it; none ever reports a
// failure that a caller would look at: a value that cannot be read comes back empty, a write to a missing key
// does nothing. That is what makes a first run work.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "registry/RegistryStore.h"
#include "values/Calendar.h"

namespace qel {

// The root of a key, by the platform's handle values.
enum class RegistryRoot : std::uint32_t { CurrentUser = 0x80000001, LocalMachine = 0x80000002 };

// Where the program's own settings live.
inline constexpr RegistryRoot SettingsRoot = RegistryRoot::LocalMachine;
inline constexpr char SettingsKey[] = "SOFTWARE\\QEL";

struct DateValue {
  Date Value;
};

// What a value can be in the program; empty is a value that is not there.
using SettingValue = std::variant<std::monostate, std::string, Int32, double, DateValue, bool>;

// The whole path of a key in the store.
std::string KeyPath(RegistryRoot root, const std::string& keyName);

// Creates the key if it is absent.
void CreatNewKey(RegistryStore& store, const std::string& keyName, RegistryRoot root);

// Stores a value as REG_SZ (its text), REG_BINARY (its lowest byte) or REG_DWORD (its nearest whole number,
// ties to even; a boolean is -1 or 0). Any other type stores nothing. Raises 6 for a number beyond 32 bits,
// 13 for a text that is no number under a number's type.
void SetKeyValue(RegistryStore& store, RegistryRoot root, const std::string& keyName,
                 const std::string& valueName, const SettingValue& value, std::uint32_t valueType);

// A text or a 32-bit integer; empty for a value that is missing or of another type.
SettingValue QueryValue(const RegistryStore& store, RegistryRoot root, const std::string& keyName,
                        const std::string& valueName);

// The two that work on a key's whole path. They give the platform's status: 0, 2 (not found) or -1 (a type
// that the program does not use).
long SetValueEx(RegistryStore& store, const std::string& key, const std::string& valueName,
                std::uint32_t valueType, const SettingValue& value);
long QueryValueEx(const RegistryStore& store, const std::string& key, const std::string& valueName,
                  SettingValue& value);

// A value as it is stored under a type; nothing for a type that the program does not use. Raises 6 or 13.
std::optional<RegistryValue> Encoded(const SettingValue& value, std::uint32_t valueType);

// A stored value as the program has it; nothing for a type that the program does not use.
std::optional<SettingValue> Decoded(const RegistryValue& stored);

// The text that REG_SZ holds for a value: "True", a regional date, a number.
std::string TextOf(const SettingValue& value);

// The nearest whole number of a value. Raises 6 or 13.
Int32 WholeOf(const SettingValue& value);

// Brings the settings' changes to the disk. A failure is never shown in a dialogue, since the program can go
// on with the settings in memory; standard error has a word of it.
void SaveRegistry(RegistryStore& store);

// Tells the user of settings files that made no sense and were set aside since this was last called.
void TellSetAside(RegistryStore& store);

}  // namespace qel
