#include "core/ProgramState.h"

#include <cstdlib>

#include "core/OSVersion.h"
#include "platform/Files.h"

namespace qel {

std::string AppPath, HelpFile, WindowsDir, DefaultLogFile, DefaultLogDir, OSName;
std::string ActiveLogFile, ActiveLogDir;

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

void ReadEnvironment() {
  AppPath = FolderBy("XDG_DATA_HOME", "/.local/share");
  HelpFile = AppPath + PathSeparator + "QEL.HLP";
  const std::string winDir = Variable("WinDir");
  WindowsDir = (winDir.empty() ? Variable("HOME") : winDir) + PathSeparator;
  DefaultLogFile = "ModemLog.txt";
  DefaultLogDir = WindowsDir;
  OSName = OSVersion();
}

std::string SettingsStorePath() {
  return FolderBy("XDG_CONFIG_HOME", "/.config") + PathSeparator + "registry.reg";
}

void ResetProgramState() {
  for (std::string* text : {&AppPath, &HelpFile, &WindowsDir, &DefaultLogFile, &DefaultLogDir, &OSName,
                            &ActiveLogFile, &ActiveLogDir})
    text->clear();
}

}  // namespace qel
