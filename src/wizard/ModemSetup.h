// The modems that the system's driver knows, whether each is set up as the program needs it, and the changes
// that make it so.
//
// The program reads what a modem logs, and learns the dialled numbers from the commands that the modem echoes
// into its log. So a modem must log, to a file, and its initialisation string must turn the echo on ("E1").
// The driver keeps all that in the registry, and nothing else of the driver is touched.
#pragma once

#include <string>

#include "core/Places.h"
#include "settings/Settings.h"
#include "settings/StoredValues.h"
#include "values/BoundedArray.h"
#include "values/CheckedInteger.h"

namespace qel {

struct ModemRecord {
  std::string DriverDesc;   // the modem's name
  std::string AttachedTo;   // its port; empty for a modem that was found among the ports
  std::string ModemKey;     // below the key of the class: "\Modem\0000", "\Ports\0000"
  std::string LoggingPath;  // of its log file
  std::string UserInit;     // the user's initialisation string, in capitals
  bool Logging = false;
  bool Echo = false;
};

inline constexpr int MostModems = 10;

class ModemSetup {
 public:
  // All three must outlive it.
  ModemSetup(RegistryStore& store, const Settings& settings, Places& places)
      : store(store), settings(settings), places(places) {}

  BoundedArray<ModemRecord> Modems{MostModems - 1};  // the first ModemCount in use
  Int16 ModemCount;
  bool ModemConfigOK = false;  // all modems that were looked at are set up
  bool NewLogStarted = false;  // the last change made a log, which is empty

  // Finds the modems and looks at the preferred one, or at all where none is preferred. Answers whether the
  // wizard is to be opened: always for a user who asks for it (`interactive`) and has a modem, at the start
  // only where one is not set up. The start is quiet otherwise, and takes a modem's log as the active log.
  bool PreConfigure(bool interactive);

  // Sets a modem up, counted from 1, by what was read of it, and makes it the preferred one. Its record stays
  // as it was read. A key that cannot be written stays as it was too, without a word. Raises 9 for a number
  // outside 1 to 10.
  void DoChange(Int16 number);

 private:
  SettingValue ModemValue(const std::string& modemKey, const char* name) const;
  std::string ModemText(const std::string& modemKey, const char* name) const;
  void SetModemValue(const ModemRecord& modem, const char* name, const SettingValue& value,
                     RegistryType type);
  template <typename Taker>
  void TakeEntries(const char* kind, const Taker& take);
  void DetectModems();
  void LookAtModems();
  void ReadTheOthers();
  void TakeActiveLog();
  void ReadModemSettings(Int16 number);
  void CheckLogFile(Int16 number);

  RegistryStore& store;
  const Settings& settings;
  Places& places;
};

}  // namespace qel
