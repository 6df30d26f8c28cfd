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

// In a source of their own: inlined where memory is used, compilers take the pairs for a mismatch. All forms
// stand here, since the sanitizers bring their own for those that are missing.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  if (untilRefusal > 0 && --untilRefusal == 0) {
    refused = true;
    return nullptr;
  }
  return std::malloc(size > 0 ? size : 1);
}
void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
