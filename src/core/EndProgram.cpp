#include "core/EndProgram.h"

#include <iostream>

#include "controls/Form.h"
#include "platform/Files.h"
#include "platform/RegistryStore.h"
#include "platform/RunTimeError.h"

namespace qel {

void SaveRegistry() {
  try {
    Registry.Flush();
  } catch (const RunTimeError& error) {
    std::cerr << "qel: the settings could not be written: " << error.Description() << '\n';
  }
}

void EndProgram() {
  CloseAllFiles();
  for (const char* name : {"frmAbout", "frmSplash", "frmViewLog", "frmReport", "frmMain"})
    if (Form* form = LoadedForm(name)) form->Unload();
  SaveRegistry();
  throw ProgramEnd();
}

}  // namespace qel
