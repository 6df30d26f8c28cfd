// The road from the program's entry to its main window.
#pragma once

#include "ui/Windows.h"

namespace qel {

// Opens the settings store and the splash window, which runs Main. Where the store cannot be read the user is
// told, and the run goes on with the built-in settings and stores nothing.
void StartProgram(Windows& windows);

// Reads the settings, settles which log to read, looks into it, and hands over to the main window; at once,
// or after a click where there is no log.
void Main(Windows& windows);

}  // namespace qel
