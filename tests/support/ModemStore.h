// Modems in the settings store, as the system's driver keeps them.
#pragma once

#include <string>

#include "settings/Registry_Functions.h"

namespace qel {

struct StoredModem {
  std::string Key;  // "\Modem\0000"
  std::string DriverDesc = "Internal 33600";
  std::string LoggingPath = "";
  bool Logging = false;
  std::string UserInit = "";
};

inline const std::string ModemClass = "System\\CurrentControlSet\\Services\\Class";

inline void SetModemText(const std::string& key, const std::string& name, const std::string& text) {
  CreatNewKey(ModemClass + key, RegistryRoot::LocalMachine);
  SetKeyValue(RegistryRoot::LocalMachine, ModemClass + key, name, text, REG_SZ);
}

// Values that would be empty are left out.
inline void Store(const StoredModem& modem) {
  SetModemText(modem.Key, "DriverDesc", modem.DriverDesc);
  if (!modem.LoggingPath.empty()) SetModemText(modem.Key, "LoggingPath", modem.LoggingPath);
  if (!modem.UserInit.empty()) SetModemText(modem.Key, "UserInit", modem.UserInit);
  SetKeyValue(RegistryRoot::LocalMachine, ModemClass + modem.Key, "Logging", Int32(modem.Logging),
              REG_BINARY);
}

// "name=text;" for each value of a modem's key, in alphabetical order.
inline std::string ModemValues(const std::string& key) {
  std::string all;
  for (const auto& name : Registry.ValueNames(KeyPath(RegistryRoot::LocalMachine, ModemClass + key)))
    all += name + "=" + TextOf(QueryValue(RegistryRoot::LocalMachine, ModemClass + key, name)) + ";";
  return all;
}

}  // namespace qel
