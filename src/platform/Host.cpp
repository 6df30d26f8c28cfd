#include "platform/Host.h"

#include "platform/Files.h"

namespace qel {

void Host::EndProgram() {
  CloseAllFiles();
  UnloadWindows();
  throw ProgramEnd();
}

}  // namespace qel
