// The modems that the system's driver knows, whether each is set up as the program needs it, and the changes
// that make it so.
//
// The program reads what a modem logs, and learns the dialled numbers from the commands that the modem echoes
// into its log. So a modem must log, to a file, and its initialisation string must turn the echo on ("E1").
// The driver keeps all that in the registry, and nothing else of the driver is touched.
#pragma once

#include <string>

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

extern BoundedArray<ModemRecord> Modems;  // 0 to 9; the first ModemCount in use
extern Int16 ModemCount;
extern bool ModemConfigOK;  // all modems that were looked at are set up
extern bool NewLogStarted;  // the last change made a log, which is empty

// Puts the four above as a fresh process has them.
void ResetModems();

// Finds the modems and looks at the preferred one, or at all where none is preferred. Answers whether the
// wizard is to be opened: always for a user who asks for it (`interactive`) and has a modem, at the start
// only where one is not set up. The start is quiet otherwise, and takes a modem's log as the active log.
bool PreConfigure(bool interactive);

// Reads the settings of a modem, counted from 1, and clears ModemConfigOK for any defect. Raises 9 for a
// number outside 1 to 10, 13 where "Logging" holds a text that is no number.
void ReadModemSettings(Int16 number);

// Sets a modem up, by what was read of it, and makes it the preferred one. Its record stays as it was read. A
// key that cannot be written stays as it was too, without a word.
void DoChange(Int16 number);

// The part of that which gives the modem a log: a path where it has none, and a new log where no file is.
void CheckLogFile(Int16 number);

}  // namespace qel
