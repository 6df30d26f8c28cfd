// The main window's side of the options: their window, and the files that save them and bring them back.
#include <string>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "platform/Files.h"
#include "settings/SettingsExchange.h"
#include "settings/UserParameters.h"
#include "ui/frmMain.h"
#include "ui/frmSetup.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr char RegistryFilter[] = "Registry File (*.reg)|*.reg";

void TellExported(const std::string& path) {
  const std::string lines[] = {
      "QEL stores all of it's options/settings in the Windows Registry. ",
      "These paramters have been exported to:",
      PathText(path),
      "Keep this file in a safe place as it can be used to restore all of ",
      "your settings and options including service definitions. It may ",
      "also be used to transfer all your QEL settings to another PC.",
      "To restore, make sure QEL is closed and simply double click",
      "the " + PathText(FileNamePart(path)) + " file.",
  };
  std::string text;
  for (const auto& line : lines) text += (text.empty() ? "" : NewLine) + line;
  MsgBox({text, "QEL Options Saved", Icon::Information});
}

void TellNotImported(const std::string& path, const std::string& why) {
  MsgBox({"These QEL options were not imported:\r\n" + PathText(path) +
              "\r\n"
              "\r\n" +
              why +
              "\r\n"
              "\r\n"
              "Your settings are as they were.",
          "QEL Options Not Imported", Icon::Exclamation});
}

void TellImported(const std::string& path, const SettingsFile& file) {
  std::string text = NumberText(file.Values) + " values were imported from\r\n" + PathText(path) +
                     "\r\n"
                     "and are in use from now on.";
  if (file.PassedOver > 0)
    text += "\r\n\r\nKeys that are not QEL's own were passed over: " + NumberText(file.PassedOver);
  MsgBox({text, "QEL Options Imported", Icon::Information});
}

}  // namespace

// The window comes back to the front once, when it shows what the options have changed, and not before.
void frmMain::mnuSetup_Click() {
  SetTrace("frmMain", "mnuSetup_Click");
  optionsOpen = true;
  frmSetup& options = *windows.SetupForm;
  options.ShowModal();
  CurrentHost().Paint();
  if (options.LogPathChanged) UseNewDefaultLog();
  optionsOpen = false;
  ShowAnew();
  if (options.OptionsChanged)
    MsgBox({"Some changed options will NOT take\neffect until the program is re-started.", "QEL Options"});
}

// Makes the log of the options the one that is read; while an archive is open, the one to go back to.
void frmMain::UseNewDefaultLog() {
  const std::string archive = logFile.CurrentLogPath;
  ReadDefaultLog(settings.ModemLogDir, settings.ModemLogFile);
  if (!logFile.ArchiveOpen) return;
  defaultLogFile = settings.ModemLogFile;
  defaultLogDir = settings.ModemLogDir;
  defaultLogUsable = findings.LogExists && !findings.LogInvalid && !findings.LogCorrupt;
  session.SetCurrentLog(archive);
  session.Examine(LogHealth::Sound);
}

// Brings the window into line with what the options have changed, and to the front.
void frmMain::ShowAnew() {
  Form_Load();
  Screen.ActiveForm = nullptr;
  Activate();
  ShowActiveDate();
}

void frmMain::mnuExport_Click() {
  SetTrace("frmMain", "ExportOptions");
  const auto path = CurrentHost().AskSaveFile({RegistryFilter, places.AppPath, "QEL.reg"});
  if (path && Attempt([&] { ReplaceFile(*path, ExportedOptions(store)); })) TellExported(*path);
}

void frmMain::mnuImport_Click() {
  SetTrace("frmMain", "ImportOptions");
  const auto path = CurrentHost().AskOpenFile({RegistryFilter, places.AppPath, ""});
  if (!path) return;
  std::string why;
  const auto file = FindSettingsFile(*path, why);
  if (!file) return TellNotImported(*path, why);
  ImportOptions(store, *file);
  SaveRegistry(store);
  const std::string before = settings.ModemLogDir + settings.ModemLogFile;
  session.LoadSettings();  // as the start does
  SettleMissingLogPath(settings, places);
  if (settings.ModemLogDir + settings.ModemLogFile != before) UseNewDefaultLog();
  TellImported(*path, *file);
  ShowAnew();
}

}  // namespace qel
