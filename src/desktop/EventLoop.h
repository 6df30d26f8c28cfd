// The road between the toolkit's events and the program. All that the toolkit has to tell goes through
// Dispatch; all that waits for the user waits in RunUntil. So no exception passes through the toolkit, and
// the end of the program, wherever it is thrown, unwinds every procedure that is under way.
#pragma once

#include <functional>

#include "ui/Windows.h"

namespace qel {

class EventLoop {
 public:
  // Of the program that has these windows; they must outlive it.
  explicit EventLoop(const Windows& windows) : windows(&windows) {}

  // Runs what an event asks for. ProgramEnd is remembered: from then on nothing is dispatched any more, and
  // all loops end. A run-time error that no procedure has dealt with goes to the error handler. After the
  // outermost dispatch the settings' changes go to the disk.
  void Dispatch(const std::function<void()>& event) noexcept;

  // Whether ProgramEnd has come up in a dispatch.
  bool HasEnded() const { return ended; }

  // The main loop: handles events until the program has ended or nothing of it is loaded.
  void Run();

  // Handles events until `done`. Throws ProgramEnd when the program has ended or nothing of it is loaded.
  // `done` counts for more: what ends with the last window ends normally.
  void RunUntil(const std::function<bool()>& done);

  // Handles the events that wait, but throws away what the user does with mouse and keyboard meanwhile,
  // except before a modal window or box that such an event has opened. Throws ProgramEnd when the program has
  // ended, or when the last of its forms has gone.
  void Yield();

  // Handles the events that wait but leaves the user's input for later. Throws as Yield does.
  void Paint();

 private:
  bool HasForms() const { return !windows->Screen.LoadedForms.empty(); }
  void GoOnAfter(const std::function<void()>& events);

  const Windows* windows;
  int depth = 0;  // of dispatches
  bool ended = false;
  bool inputIsThrownAway = false;
};

}  // namespace qel
