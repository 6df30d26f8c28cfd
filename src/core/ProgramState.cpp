#include "core/ProgramState.h"

#include <cstdlib>

#include "core/OSVersion.h"
#include "platform/Files.h"

namespace qel {

std::string ModuleTrace, ProcedureTrace, StepTrace;
std::string AppPath, HelpFile, WindowsDir, DefaultLogFile, DefaultLogDir, OSName;
std::string TimeFormat;
bool SettingsDirty = false;
std::string ActiveLogFile, ActiveLogDir;
std::string CurrentLogFile, CurrentLogDir, CurrentLogPath;
bool ArchiveOpen = false;
bool LogExists = false, LogCorrupt = false, LogTooBig = false, LogEmpty = false, LogInvalid = false;

namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string ProgramFolder() {
  if (const std::string home = Variable("QEL_HOME"); !home.empty()) return home;
  if (const std::string data = Variable("XDG_DATA_HOME"); !data.empty()) return data + "/qel";
  return Variable("HOME") + "/.local/share/qel";
}

}  // namespace

void SetTrace(const char* module, const char* procedure) {
  ModuleTrace = module;
  ProcedureTrace = procedure;
}

void ReadEnvironment() {
  AppPath = ProgramFolder();
  HelpFile = AppPath + PathSeparator + "QEL.HLP";
  const std::string winDir = Variable("WinDir");
  WindowsDir = (winDir.empty() ? Variable("HOME") : winDir) + PathSeparator;
  DefaultLogFile = "ModemLog.txt";
  DefaultLogDir = WindowsDir;
  OSName = OSVersion();
}

void ResetProgramState() {
  for (std::string* text : {&ModuleTrace, &ProcedureTrace, &StepTrace, &AppPath, &HelpFile, &WindowsDir,
                            &DefaultLogFile, &DefaultLogDir, &OSName, &TimeFormat, &ActiveLogFile,
                            &ActiveLogDir, &CurrentLogFile, &CurrentLogDir, &CurrentLogPath})
    text->clear();
  for (bool* flag :
       {&SettingsDirty, &ArchiveOpen, &LogExists, &LogCorrupt, &LogTooBig, &LogEmpty, &LogInvalid})
    *flag = false;
}

}  // namespace qel
