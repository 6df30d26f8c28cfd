// What surrounds the work in hand: whom it asks, whom it tells how far it is, and where it is, for the error
// dialogue.
#pragma once

#include <string>
#include <string_view>

#include "core/Display.h"
#include "platform/Host.h"
#include "values/Meanwhile.h"

namespace qel {

// Holds for all that its thread does from here to its end; then what surrounded it before is back. Where
// there is none, nobody is asked or told.
class Surroundings {
 public:
  Surroundings(qel::Host& host, qel::Display& display);

  qel::Host& Host;
  qel::Display* Display;
  // Every procedure of note writes these on its way in; they stay as they are until the next one does.
  std::string ModuleTrace, ProcedureTrace, StepTrace;

 private:
  Meanwhile<Surroundings*> hold;
};

// Those of this thread.
Surroundings& CurrentSurroundings();

inline Host& CurrentHost() { return CurrentSurroundings().Host; }
inline Display& CurrentDisplay() { return CurrentSurroundings().Display->Front(); }
inline Answer MsgBox(const Message& message) { return CurrentHost().MessageBox(message); }

void SetTrace(std::string_view module, std::string_view procedure);
inline void TraceProcedure(std::string_view procedure) { CurrentSurroundings().ProcedureTrace = procedure; }
inline void TraceStep(std::string_view step) { CurrentSurroundings().StepTrace = step; }

}  // namespace qel
