// The one way out of the program.
#pragma once

namespace qel {

// Thrown by EndProgram. Only the two main functions and the event dispatch of the desktop catch it; a nested
// loop throws it on, so that destructors run all the way out.
struct ProgramEnd {};

// Brings the settings' changes to the disk. A failure is never shown in a dialogue, since the program can go
// on with the settings in memory; standard error has a word of it.
void SaveRegistry();

// Tells the user of settings files that made no sense and were set aside since this was last called.
void TellSetAside();

// Closes all files, unloads the windows, which cannot prevent it, brings the settings' changes to the disk
// and throws ProgramEnd.
[[noreturn]] void EndProgram();

}  // namespace qel
