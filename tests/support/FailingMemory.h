// Memory of which a chosen piece is refused, once: for the loop
//
//   for (int n = 1; n == 1 || RefusedMemory(); ++n) { RefuseMemory(n); ...; }
//
// which runs a piece of work with each of its requests for memory failing in turn, and once more with none.
// Only one source of a test program may include it.
#pragma once

#include <cstdlib>
#include <new>

namespace qel {

inline int memoryUntilRefusal = 0;  // requests; 0 for never
inline bool memoryRefused = false;

inline void RefuseMemory(int request) {
  memoryUntilRefusal = request;
  memoryRefused = false;
}

// Whether it came to that. Nothing is refused from now on.
inline bool RefusedMemory() {
  memoryUntilRefusal = 0;
  return memoryRefused;
}

}  // namespace qel

void* operator new(std::size_t size) {
  if (qel::memoryUntilRefusal > 0 && --qel::memoryUntilRefusal == 0) {
    qel::memoryRefused = true;
    throw std::bad_alloc();
  }
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
