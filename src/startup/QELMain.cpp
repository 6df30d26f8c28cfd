#include "startup/QELMain.h"

#include <string>

#include "core/ErrorHandler.h"
#include "core/Installation.h"
#include "core/Surroundings.h"
#include "maintenance/LogSwap.h"
#include "modemlog/NewLog.h"
#include "platform/Files.h"
#include "registry/StoredRegion.h"
#include "settings/UserParameters.h"
#include "ui/frmPreConfigure.h"
#include "ui/frmSplash.h"
#include "values/CodePage.h"

namespace qel {

namespace {

void TellStep(const char* text) {
  CurrentDisplay().SplashText(text);
  CurrentHost().Paint();
}

void ReadRegion(const RegistryStore& store) {
  TellStep("Reading Regional Settings");
  Region = GetCurrencySymbolInfo(store);
}

void CheckModems(Windows& windows) {
  Session& session = windows.session;
  if (session.settings.ModemCheck && session.modems.PreConfigure(false))
    windows.PreConfigureForm->ShowModal();
}

bool UserWantsTheActiveLog() {
  Message conflict{
      "Modem Log Path Conflict!\r\n"
      "\r\n"
      "QEL has detected that your Window's active log file\r\n"
      "is different to the one that QEL has been set to read.\r\n"
      "\r\n"
      "For QEL to operate correctly it must read your system's\r\n"
      "currently active log file.\r\n"
      "\r\n"
      "Do you want QEL to fix this for you?",
      "WARNING", Icon::Exclamation, Buttons::YesNo};
  conflict.EscapeButton = 2;  // nothing changes, and the question comes again
  return MsgBox(conflict) == Answer::Yes;
}

void TellNewLog() {
  MsgBox(
      {"Modem Log Created!\r\n"
       "\r\n"
       "QEL has created a new empty modem log file\r\n"
       "to match your system settings.\r\n"
       "\r\n"
       "Reports will not be available until after you \r\n"
       "disconnect from your next dial-up networking.\r\n"
       "session?",
       "Modem Log", Icon::Information});
}

// The log of the settings, or the one that the system's modem writes where the user says so.
void SettleLogPath(Settings& settings, Places& places) {
  SetTrace("QELMain", "SettleLogPath");
  if (SettleMissingLogPath(settings, places) || places.ActiveLogFile.empty()) return;
  if (places.ActiveLogDir.empty()) places.ActiveLogDir = places.DefaultLogDir;
  if (places.ActiveLogFile == settings.ModemLogFile && places.ActiveLogDir == settings.ModemLogDir) return;
  if (!UserWantsTheActiveLog()) return;
  settings.ModemLogFile = places.ActiveLogFile;
  settings.ModemLogDir = places.ActiveLogDir;
  settings.SettingsDirty = true;
  bool madeNew = false;
  const std::string path = settings.ModemLogDir + settings.ModemLogFile;
  Attempt([&path] { MendInterruptedSwap(path); });
  Attempt([&] { madeNew = NewModemLog(path); });
  if (madeNew) TellNewLog();
}

void ExamineLog(Session& session) {
  SetTrace("QELMain", "ExamineLog");
  TellStep("Please Wait . . . Checking Modem Log");
  session.SetCurrentLog(session.settings.ModemLogDir, session.settings.ModemLogFile);
  Attempt([&] { MendInterruptedSwap(session.logFile.CurrentLogPath); });
  session.Examine(LogHealth::UnknownTold);
}

// Settings that cannot be read stay as they are: the program runs on those that are built in, and stores
// none.
void OpenSettings(RegistryStore& store) {
  const std::string path = SettingsStorePath();
  try {
    store.Open(path, RegistryStore::Access::Shared);
  } catch (const RunTimeError& error) {
    MsgBox({"QEL cannot read your settings file\r\n" + PathText(path) + "\r\n(" +
                FromUtf8Lossy(ReasonOf(error)) +
                ").\r\n\r\n"
                "QEL runs with its built-in settings now: without your\r\n"
                "services, and without storing anything that you change.\r\n"
                "Mend the file and start QEL again.",
            "QEL Settings", Icon::Exclamation});
  }
  TellSetAside(store);
}

}  // namespace

void StartProgram(Windows& windows) {
  SetTrace("QELMain", "StartProgram");
  OpenSettings(windows.session.store);
  windows.SplashForm->Main = [&windows] { Main(windows); };
  windows.SplashForm->Show();
}

void Main(Windows& windows) {
  SetTrace("QELMain", "Main");
  Session& session = windows.session;
  Settings& settings = session.settings;
  windows.SplashForm->PauseOnSplash = false;
  session.places = ReadEnvironment();
  const std::string& home = session.places.AppPath;
  IgnoreErrors([&home] { MakeFolders(home); });
  CopyMissingFiles(InstalledFolders(), home);
  ReadRegion(session.store);
  TellStep("Reading User Configuration");
  session.LoadSettings();
  CheckModems(windows);
  SettleLogPath(settings, session.places);
  if (settings.SettingsDirty) session.StoreSettings();
  settings.SettingsDirty = false;
  ExamineLog(session);
  windows.SplashForm->PauseOnSplash = !session.findings.LogExists;
  if (session.findings.LogExists)
    windows.SplashForm->HandOver();
  else
    windows.SplashForm->WaitForClick();
}

}  // namespace qel
