// What the whole program knows: where it runs.
// Valid from the start to the end of the program; each value has one writer.
#pragma once

#include <string>

namespace qel {

inline constexpr char NewLine[] = "\r\n";

// Places. AppPath is without, WindowsDir and DefaultLogDir are with a separator at the end.
extern std::string AppPath;  // the program's own folder: working copies, tips, help, sound
extern std::string HelpFile;
extern std::string WindowsDir;      // where the system keeps its log: $WinDir, else the home folder
extern std::string DefaultLogFile;  // "ModemLog.txt"
extern std::string DefaultLogDir;
extern std::string OSName;

// Takes the six above from the environment.
void ReadEnvironment();

// Where the program keeps its settings: registry.reg in $QEL_HOME, else in qel below the user's configuration
// ($XDG_CONFIG_HOME, else ~/.config).
std::string SettingsStorePath();

extern std::string ActiveLogFile;  // the log that the system's modem is set to write; empty if unknown
extern std::string ActiveLogDir;

// Puts all of the above as a fresh process has it.
void ResetProgramState();

}  // namespace qel
