// Sound files, played by whichever player the machine has.
#pragma once

#include <string>

namespace qel {

// Plays a file and returns when it has ended; windows keep painting meanwhile. A player that
// fails, as one without its sound server, leaves the sound to the next. Silence where there is none; a sound
// of more than half a minute is cut off. Throws ProgramEnd when the program ends meanwhile.
void PlaySound(const std::string& path);

}  // namespace qel
