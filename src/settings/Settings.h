// Every option of the program as a value: copied to edit, assigned to save. The names are those of the store.
//
// Zero, an empty text and a missing value are the same thing: such an option takes its default at the start.
#pragma once

#include <array>
#include <string>

#include "settings/ServiceRecords.h"
#include "settings/SettingRow.h"
#include "values/BoundedArray.h"
#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

struct Settings {
  // General
  std::string ModemLogFile;
  std::string ModemLogDir;  // with a separator at its end
  Int16 MaxServices;
  Int16 UsedServices;
  Int16 MaxConnections;         // of one report
  Int16 MaxConnectDays;         // longest connection looked for
  double NoDisconDuration = 0;  // seconds given to a connection without a disconnect entry
  double NoDisconData = 0;      // kilobytes given to it
  Int32 MaxLogSize;             // kilobytes from which the log is too big
  Int16 PreferredModem;
  std::string UserStartPref;
  Date UserStartDate = 0;
  Int16 UserStartOfWeek;
  Int16 UserStartOfMonth;
  Int16 UserReportPref;
  Option EditLog;
  Option ShowErrors;  // connections with errors are shown and charged by estimate
  Option ShowToolbars;
  Option FlatToolbars;
  Option ShowGraphic;
  Option AutoOptimize;
  Option ModemCheck;
  Option Tips;
  bool ForceAMPM = false;  // connection times in 12 hour form

  // Modem: the texts by which log lines are recognised
  std::string ModemDial;
  std::string ModemAnswer;
  std::string ModemConnect;
  std::string ModemUserDisconnect;
  std::string ModemHostDisconnect;
  std::string ModemReads;
  std::string ModemWrites;

  // Costs, for numbers that are no service
  Option CalcCosts;
  double DialCost = 0;     // per call
  double CostPerHour = 0;  // of connected time
  double CostPerMeg = 0;   // of data read

  BoundedArray<ServiceRecord> Services;          // 0 to MaxServices; the first UsedServices in use
  std::string WarningSoundFile;                  // one for all services
  BoundedArray<Date> Holidays{MaxHolidays - 1};  // the first UsedHolidays in use
  Int16 UsedHolidays;

  bool SettingsDirty = false;  // a default was filled in; the settings must be stored
  // Whether the display can show the graphics; without it the stored ShowGraphic is left as it was.
  bool GraphicsAvailable = false;
};

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

// The report window: one record for each report. Twips; zero means not stored.
struct ReportViewSettings {
  Int32 WinHeight;
  Int32 WinWidth;
  Int32 WinLeft;
  Int32 WinTop;
  float FontSize = 0;
  std::array<Int32, 7> Column;  // Column1 to Column7; not all are stored
};

struct RecentFile {
  std::string RecentFileName;
  std::string RecentFilePath;
  std::string RecentFileType;  // "A" an archive or log, "R" a report, "" a free slot
};

// What windows remember of themselves: no option of the options window.
struct WindowSettings {
  Int32 MainWinWidth;  // twips; 0 keeps the design size
  Int32 MainWinHeight;
  ViewLogRecord ViewLogSettings;
  ReportViewSettings SummaryViewSettings;
  ReportViewSettings DetailViewSettings;
  Option SaveReportSettings;
  Option ReportListView;
  bool ReportCharts = false;  // instead of either format
  Option ReportAutoArrange;
  std::array<RecentFile, 5> RecentFiles;
};

}  // namespace qel
