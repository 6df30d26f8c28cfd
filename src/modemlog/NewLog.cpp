#include "modemlog/NewLog.h"

#include "core/Version.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/RunTimeError.h"

namespace qel {

std::string NewLogEntry() {
  const Date now = Now();
  return FormatDate(now, "mm-dd-yyyy") + " " + FormatDate(now, "hh\\:nn\\:ss") + ".00 - " +
         "New modem log file created by QEL (Qelmark) v" + std::to_string(VersionMajor) + "." +
         std::to_string(VersionMinor) + NewLine;
}

bool NewModemLog(const std::string& path) {
  if (PathExists(path) && !IsFolder(path)) return false;
  try {
    CreateFile(path, NewLogEntry());
    return true;
  } catch (const RunTimeError& error) {
    if (!PathExists(path) || IsFolder(path)) throw;
    // It stands there, be it ours, and only the flush of its folder failed, or that of somebody quicker.
    return error.Number() != FileAlreadyExists;
  }
}

}  // namespace qel
