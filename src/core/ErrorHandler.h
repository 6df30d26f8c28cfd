// The one handler of run-time failures: it tells the user in words that fit the error and answers what to do
// next.
//
// The failure pattern of the whole program: a procedure stores its trace names and wraps the statements that
// can fail in Attempt. Code that cannot fail is not wrapped. What is wrapped has one effect, and has worked
// out all that it needs before: running it again then repeats nothing, and going on behind it leaves nothing
// half done.
#pragma once

#include <new>

#include "values/CheckedInteger.h"
#include "values/RunTimeError.h"

namespace qel {

// The help's topic on errors.
inline constexpr int ErrorHelpTopic = 92;

// 0: repeat the failed statement; 1: go on behind it; 2: unrecoverable; 3: unknown.
Int16 ErrorHandler(const RunTimeError& error);

// Asks ErrorHandler: true to repeat the statement, false to go on behind it. Any other answer ends the
// program.
bool RepeatAfter(const RunTimeError& error);

// Runs one statement that can fail. True when it ran to its end, false when the user went on without it.
template <typename Statement>
bool Attempt(Statement&& statement) {
  for (;;) {
    try {
      statement();
      return true;
    } catch (const RunTimeError& error) {
      if (!RepeatAfter(error)) return false;
    } catch (const std::bad_alloc&) {
      if (!RepeatAfter(RunTimeError(OutOfMemory))) return false;
    }
  }
}

// Runs one statement whose failure is passed over without a word.
template <typename Statement>
void IgnoreErrors(Statement&& statement) {
  try {
    statement();
  } catch (const RunTimeError&) {
  } catch (const std::bad_alloc&) {
  }
}

}  // namespace qel
