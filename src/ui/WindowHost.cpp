#include "ui/WindowHost.h"

#include "core/ErrorHandler.h"
#include "settings/StoredValues.h"
#include "ui/frmHelp.h"
#include "ui/frmMain.h"
#include "ui/frmSplash.h"

namespace qel {

Display& WindowHost::Front() {
  if (Windows && Windows->MainForm.IsLoaded()) return *Windows->MainForm;
  if (Windows && Windows->SplashForm.IsLoaded()) return *Windows->SplashForm;
  return *this;
}

void WindowHost::ShowHelp(int topic) {
  if (Windows) Windows->HelpForm->ShowHelp(topic);
}

void WindowHost::UnloadWindows() {
  if (!Windows) return;
  // First the options: what was not saved there is put back before other windows store the settings.
  for (const char* name : {"frmSetup", "frmAbout", "frmSplash", "frmViewLog", "frmReport", "frmMain"})
    if (Form* form = Windows->Screen.LoadedForm(name)) IgnoreErrors([form] { form->UnloadAtTheEnd(); });
  SaveRegistry(Windows->session.store);
  TellSetAside(Windows->session.store);
}

}  // namespace qel
