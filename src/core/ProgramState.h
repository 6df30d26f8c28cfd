// What the whole program knows: where it runs, which log it reads.
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

extern bool SettingsDirty;         // a default was filled in; the settings must be written
extern std::string ActiveLogFile;  // the log that the system's modem is set to write; empty if unknown
extern std::string ActiveLogDir;

// The file that all reading works on. The path is folder and file joined with nothing between them.
extern std::string CurrentLogFile;
extern std::string CurrentLogDir;
extern std::string CurrentLogPath;
// Makes a file the current one, of which nothing is known yet: folder (with a separator at its end) and name,
// or a whole path.
void SetCurrentLog(const std::string& folder, const std::string& file);
void SetCurrentLog(const std::string& path);

extern bool ArchiveOpen;  // it is an archive or other file and not the default modem log

// What is known of that file.
extern bool LogExists;
extern bool LogCorrupt;  // holds a byte that no text log holds, or a line without a date
extern bool LogTooBig;
extern bool LogEmpty;
extern bool LogInvalid;  // the first or the last entry has no date

extern bool TipShown;  // the tip of the day has been offered in this run

// Puts all of the above as a fresh process has it.
void ResetProgramState();

}  // namespace qel
