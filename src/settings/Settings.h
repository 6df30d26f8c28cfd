// Every option of the program, with the names it has in the store. Loaded once at the start, changed by the
// options window and the wizard, stored again as a whole.
//
// Zero, an empty text and a missing value are the same thing: such an option takes its default at the start.
#pragma once

#include <array>
#include <string>

#include "settings/ServiceRecords.h"
#include "settings/SettingField.h"
#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

// General
extern std::string ModemLogFile;
extern std::string ModemLogDir;  // with a separator at its end
extern Int16 MaxServices;
extern Int16 UsedServices;
extern Int16 MaxConnections;     // of one report
extern Int16 MaxConnectDays;     // longest connection looked for
extern double NoDisconDuration;  // seconds given to a connection without a disconnect entry
extern double NoDisconData;      // kilobytes given to it
extern Int32 MaxLogSize;         // kilobytes from which the log is too big
extern Int16 PreferredModem;
extern std::string UserStartPref;
extern Date UserStartDate;
extern Int16 UserStartOfWeek;
extern Int16 UserStartOfMonth;
extern Int16 UserReportPref;
extern Int32 MainWinWidth;  // twips; 0 keeps the design size
extern Int32 MainWinHeight;
extern Option EditLog;
extern Option ShowErrors;  // connections with errors are shown and charged by estimate
extern Option ShowToolbars;
extern Option FlatToolbars;
extern Option ShowGraphic;
extern Option AutoOptimize;
extern Option ModemCheck;
extern Option Tips;

// Whether the display can show the graphics; without it the stored ShowGraphic is left as it was.
extern bool GraphicsAvailable;

// Modem: the texts by which log lines are recognised
extern std::string ModemDial;
extern std::string ModemAnswer;
extern std::string ModemConnect;
extern std::string ModemUserDisconnect;
extern std::string ModemHostDisconnect;
extern std::string ModemReads;
extern std::string ModemWrites;

// Costs, for numbers that are no service
extern Option CalcCosts;
extern double DialCost;     // per call
extern double CostPerHour;  // of connected time
extern double CostPerMeg;   // of data read

// The log viewer
struct ViewLogRecord {
  Option SaveSettings;
  std::string FontName;
  Int16 FontSize;
  bool FontBold = false;
  bool FontItalic = false;
  Int16 WinHeight;  // twips
  Int16 WinWidth;
  Int16 WinState;
};
extern ViewLogRecord ViewLogSettings;

// The report window: one record for each report. Twips; zero means not stored.
struct ReportViewSettings {
  Int32 WinHeight;
  Int32 WinWidth;
  Int32 WinLeft;
  Int32 WinTop;
  float FontSize = 0;
  std::array<Int32, 7> Column;  // Column1 to Column7; not all are stored
};
extern ReportViewSettings SummaryViewSettings;
extern ReportViewSettings DetailViewSettings;
extern Option SaveReportSettings;
extern Option ReportListView;
extern Option ReportAutoArrange;
extern bool ForceAMPM;  // connection times in 12 hour form

struct RecentFile {
  std::string RecentFileName;
  std::string RecentFilePath;
  std::string RecentFileType;  // "A" an archive or log, "R" a report, "" a free slot
};
extern std::array<RecentFile, 5> RecentFiles;

// Puts all of the above, services and holidays included, as a fresh process has it.
void ResetSettings();

// Loads everything from the store, creating the keys on the way, and sizes `Services`. Sets SettingsDirty
// where MaxServices was missing. A value that does not convert goes to the error handler, and the rest still
// loads.
void ReadUserParameters();

// Takes up the services and holidays as other programs have stored them since, so that what the user adds to
// them goes behind what is there. For a moment in which nothing of them is being edited.
void TakeUpOthersRecords();

// Fills every missing option but the log's path with its default, setting SettingsDirty for those that must
// be stored at once.
void FillMissingSettings();

// Where no log is set, takes the system's active log, or else the default one. True when it did.
bool SettleMissingLogPath();

// Stores everything and brings it to the disk. The viewer's and the report window's settings go only with
// their own SaveSettings on, and ForceAMPM follows into whichever key was named last.
void WriteUserParameters();

// Stores the SaveSettings of a window alone, under the window's key ("\\ViewLog", "\\ViewReport"), so that
// switching it off is itself remembered.
void WriteSaveSettings(const char* below, Option& saveSettings);

// Stores one value of "\\General" apart from the others, and brings it to the disk.
void StoreGeneralValue(const std::string& valueName, const SettingValue& value, RegistryType type);

// The seven marker texts of the modem, and the viewer's settings, by default.
void RestoreModemDefaults();
void RestoreViewLogDefaults();

}  // namespace qel
