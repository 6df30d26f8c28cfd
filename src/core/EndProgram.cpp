#include "core/EndProgram.h"

#include <iostream>

#include "controls/Form.h"
#include "platform/Files.h"
#include "platform/RegistryStore.h"
#include "platform/RunTimeError.h"

namespace qel {

namespace {

bool failureTold = false;  // since the last time that the settings could be written

}  // namespace

void SaveRegistry() {
  try {
    Registry.Flush();
    failureTold = false;
  } catch (const RunTimeError& error) {
    if (!failureTold) std::cerr << "qel: the settings could not be written: " << error.Description() << '\n';
    failureTold = true;
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
