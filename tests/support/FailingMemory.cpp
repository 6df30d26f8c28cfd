#include "support/FailingMemory.h"

#include <cstdlib>
#include <new>

namespace {

int untilRefusal = 0;  // requests; 0 for never
bool refused = false;

}  // namespace

namespace qel {

void RefuseMemory(int request) {
  untilRefusal = request;
  refused = false;
}

bool RefusedMemory() {
  untilRefusal = 0;
  return refused;
}

}  // namespace qel

// In a source of their own: inlined where memory is used, compilers take the pair for a mismatch.
void* operator new(std::size_t size) {
  if (untilRefusal > 0 && --untilRefusal == 0) {
    refused = true;
    throw std::bad_alloc();
  }
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
