#include "ui/WindowHost.h"

#include "core/ErrorHandler.h"
#include "settings/StoredValues.h"
#include "ui/frmHelp.h"
#include "ui/frmMain.h"
#include "ui/frmSplash.h"

namespace qel {

Display& WindowHost::Front() {
  if (MainForm.IsLoaded()) return *MainForm;
  if (SplashForm.IsLoaded()) return *SplashForm;
  return *this;
}

void WindowHost::ShowHelp(int topic) { qel::ShowHelp(topic); }

void WindowHost::UnloadWindows() {
  // First the options: what was not saved there is put back before other windows store the settings.
  for (const char* name : {"frmSetup", "frmAbout", "frmSplash", "frmViewLog", "frmReport", "frmMain"})
    if (Form* form = LoadedForm(name)) IgnoreErrors([form] { form->UnloadAtTheEnd(); });
  SaveRegistry(Registry);
  TellSetAside(Registry);
}

}  // namespace qel
