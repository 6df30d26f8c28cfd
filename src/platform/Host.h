// The seam to everything around the program that is no control of a window: message boxes, sound, clipboard,
// mouse pointer, the message loop. There is one host for each face of the program and one for the tests.
#pragma once

#include <functional>
#include <string>

#include "platform/RunTimeError.h"

namespace qel {

enum class Buttons { OK, OKCancel, AbortRetryIgnore, YesNo };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };
enum class MousePointer { Default = 0, Hourglass = 11 };

struct Message {
  std::string Text;  // Windows-1252, lines divided by the control characters that the caller put there
  std::string Title;
  Icon icon = Icon::None;
  Buttons buttons = Buttons::OK;
  int HelpContext = 0;  // of the Help button; 0 for none
};

class Host {
 public:
  virtual ~Host() = default;

  virtual Answer MessageBox(const Message& message) = 0;

  // The message box of the error handler. A host without a user in front of it ends the run here.
  virtual Answer ErrorBox(const RunTimeError& error, const Message& message) {
    static_cast<void>(error);
    return MessageBox(message);
  }

  // Runs the message loop until `done` says so: a modal window is in front.
  virtual void RunModal(const std::function<bool()>& done) { static_cast<void>(done); }

  // Lets queued events run and windows repaint.
  virtual void Yield() {}
  virtual void SetMousePointer(MousePointer) {}
  virtual void SetClipboardText(const std::string&) {}
  // Plays a sound file and returns when it has ended; silence where it cannot.
  virtual void PlaySoundFile(const std::string&) {}
  virtual void Beep() {}
};

Host& CurrentHost();
void SetHost(Host& host);

inline Answer MsgBox(const Message& message) { return CurrentHost().MessageBox(message); }

}  // namespace qel
