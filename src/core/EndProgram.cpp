#include "core/EndProgram.h"

#include <iostream>

#include "controls/Form.h"
#include "core/ErrorHandler.h"
#include "platform/Files.h"
#include "platform/Host.h"
#include "registry/RegistryStore.h"
#include "values/CodePage.h"
#include "values/RunTimeError.h"

namespace qel {

void SaveRegistry() {
  const bool told = Registry.FlushFailed();
  try {
    Registry.Flush();
  } catch (const RunTimeError& error) {
    if (!told) std::cerr << "qel: the settings could not be written: " << error.Description() << '\n';
  }
}

void TellSetAside() {
  for (const auto& file : Registry.TakeSetAside())
    MsgBox({"QEL could not read your settings file\r\n" + PathText(file.Path) + "\r\n(" +
                FromUtf8Lossy(file.Why) + ").\r\n\r\nThe file is kept as\r\n" + PathText(file.KeptAs) +
                "\r\nand a new one takes its place.",
            "QEL Settings", Icon::Exclamation});
}

void EndProgram() {
  CloseAllFiles();
  // First the options: what was not saved there is put back before other windows store the settings.
  for (const char* name : {"frmSetup", "frmAbout", "frmSplash", "frmViewLog", "frmReport", "frmMain"})
    if (Form* form = LoadedForm(name)) IgnoreErrors([form] { form->UnloadAtTheEnd(); });
  SaveRegistry();
  TellSetAside();
  throw ProgramEnd();
}

}  // namespace qel
