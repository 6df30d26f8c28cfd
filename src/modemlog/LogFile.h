// The log that all reading works on, and what is known of it.
#pragma once

#include <string>

#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

struct LogFile {
  std::string CurrentLogFile;
  std::string CurrentLogDir;  // with a separator at its end
  std::string CurrentLogPath;
  bool ArchiveOpen = false;  // it is an archive or other file and not the default modem log
};

struct LogFindings {
  bool LogExists = false;
  bool LogCorrupt = false;  // holds a byte that no text log holds, or a line without a date
  bool LogTooBig = false;
  bool LogEmpty = false;
  bool LogInvalid = false;     // the first or the last entry has no date, or a time in its place
  bool TimesForDates = false;  // the entries, or the first ten, begin with the time where the date belongs

  Int32 LogLength;          // bytes; a longer archive counts as 2147483647
  float LogEntries = 0;     // lines that are not blank; exact up to 16777216; 0 where nobody counts them
  Date FirstEntryDate = 0;  // of the first entry that has a date; 0 when none has
  Date LastEntryDate = 0;   // of the last entry; 0 when it has none
};

}  // namespace qel
