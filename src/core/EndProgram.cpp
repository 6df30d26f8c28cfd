#include "core/EndProgram.h"

#include <iostream>

#include "platform/Files.h"
#include "platform/RegistryStore.h"
#include "platform/RunTimeError.h"

namespace qel {

void EndProgram() {
  CloseAllFiles();
  try {
    Registry.Flush();
  } catch (const RunTimeError& error) {
    // Nobody is left to answer a dialogue.
    std::cerr << "qel: the settings could not be written: " << error.Description() << '\n';
  }
  throw ProgramEnd();
}

}  // namespace qel
