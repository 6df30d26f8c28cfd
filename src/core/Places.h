// Where the program runs.
#pragma once

#include <string>

namespace qel {

struct Places {
  std::string AppPath;  // the program's own folder: working copies, tips, help, sound
  std::string HelpFile;
  std::string WindowsDir;  // where the system keeps its log: $WinDir, else the home folder; with a separator
  std::string DefaultLogFile;  // "ModemLog.txt"
  std::string DefaultLogDir;   // with a separator
  std::string OSName;
  std::string ActiveLogFile;  // the log that the system's modem is set to write; empty if unknown
  std::string ActiveLogDir;
};

// All but the active log.
Places ReadEnvironment();

// Where the program keeps its settings: registry.reg in $QEL_HOME, else in qel below the user's configuration
// ($XDG_CONFIG_HOME, else ~/.config).
std::string SettingsStorePath();

}  // namespace qel
