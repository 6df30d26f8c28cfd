#include "core/Surroundings.h"

namespace qel {

namespace {

class Nobody : public Host, public Display {
  Answer MessageBox(const Message&) override { return Answer::Abort; }
};

thread_local Surroundings* current = nullptr;

}  // namespace

Surroundings::Surroundings(qel::Host& host, qel::Display& display)
    : Host(host), Display(&display), hold(current, this) {}

Surroundings& CurrentSurroundings() {
  if (current) return *current;
  thread_local Nobody nobody;
  thread_local Surroundings outermost(nobody, nobody);
  return outermost;
}

void SetTrace(std::string_view module, std::string_view procedure) {
  CurrentSurroundings().ModuleTrace = module;
  TraceProcedure(procedure);
}

}  // namespace qel
