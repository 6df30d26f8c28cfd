// What a piece of work raises.
#pragma once

#include <functional>

#include "values/RunTimeError.h"

namespace qel {

// The number of the run-time error, 0 where there is none.
inline int ErrorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace qel
