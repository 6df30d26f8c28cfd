#include "core/Places.h"

#include <cstdlib>

#include "core/OSVersion.h"
#include "platform/Files.h"

namespace qel {

namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

// $QEL_HOME, else qel below the folder that `variable` names, else qel below that folder's place in the home
// folder.
std::string FolderBy(const char* variable, const std::string& placeInHome) {
  std::string folder = Variable("QEL_HOME");
  if (!folder.empty()) return folder;
  folder = Variable(variable);
  return (folder.empty() ? Variable("HOME") + placeInHome : folder) + "/qel";
}

}  // namespace

Places ReadEnvironment() {
  Places places;
  places.AppPath = FolderBy("XDG_DATA_HOME", "/.local/share");
  places.HelpFile = places.AppPath + PathSeparator + "QEL.HLP";
  const std::string winDir = Variable("WinDir");
  places.WindowsDir = (winDir.empty() ? Variable("HOME") : winDir) + PathSeparator;
  places.DefaultLogFile = "ModemLog.txt";
  places.DefaultLogDir = places.WindowsDir;
  places.OSName = OSVersion();
  return places;
}

std::string SettingsStorePath() {
  return FolderBy("XDG_CONFIG_HOME", "/.config") + PathSeparator + "registry.reg";
}

}  // namespace qel
