// Memory of which a chosen piece is refused, once: for the loop
//
//   for (int n = 1; n == 1 || RefusedMemory(); ++n) { RefuseMemory(n); ...; }
//
// which runs a piece of work with each of its requests for memory failing in turn, and once more with none.
// A test program that includes this is made with FailingMemory.cpp too.
#pragma once

namespace qel {

void RefuseMemory(int request);

// Whether it came to that. Nothing is refused from now on.
bool RefusedMemory();

}  // namespace qel
