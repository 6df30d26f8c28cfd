// The one way out of the program.
#pragma once

namespace qel {

// Thrown by EndProgram. Only the two main functions and the event dispatch of the desktop catch it; a nested
// loop throws it on, so that destructors run all the way out.
struct ProgramEnd {};

// Closes all files, brings the settings' changes to the disk and throws ProgramEnd.
[[noreturn]] void EndProgram();

}  // namespace qel
