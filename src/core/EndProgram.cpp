#include "core/EndProgram.h"

#include <iostream>

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
  SaveRegistry();
  throw ProgramEnd();
}

}  // namespace qel
