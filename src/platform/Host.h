// The seam to everything around the program that is no control of a window: message boxes, the dialogues for
// files, fonts and printing, sound, clipboard, mouse pointer, other programs, the message loop. There is one
// host for each face of the program and one for the tests.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Drawing.h"
#include "platform/Font.h"
#include "values/RunTimeError.h"

namespace qel {

enum class Buttons { OK, OKCancel, AbortRetryIgnore, YesNo };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };
enum class LockKey { Caps, Scroll };
enum class MousePointer { Default = 0, Hourglass = 11 };

struct Message {
  std::string Text;  // Windows-1252, lines divided by the control characters that the caller put there
  std::string Title;
  Icon icon = Icon::None;
  Buttons buttons = Buttons::OK;
  int HelpContext = 0;    // of the Help button; 0 for none
  int DefaultButton = 1;  // by place
  int EscapeButton = 0;   // by place: the answer of Escape; 0 for a Cancel or an only button, else none
};

// What a file dialogue begins with.
struct FileDialog {
  // "Text (*.txt)|*.txt|CSV (*.csv)|*.csv". Names to save under get the extension of the kind that the user
  // chooses, the first one at the beginning, unless they have that of another kind.
  std::string Filter;
  std::string Folder;    // where it opens; a file path, as all paths in the system's bytes
  std::string FileName;  // the name it proposes, in the system's bytes too
};

// Text for the printer, Windows-1252, fixed pitch, and drawings below it.
struct PrintJob {
  std::string Title;  // of the document
  std::string Text;   // lines end in CR LF
  qel::Font Font = {"Courier New", 10};
  int Left = 500;                      // twips from the edge of the page's printable area
  std::vector<Drawing> Drawings = {};  // each whole on its page
};

// The colour that windows and buttons are drawn in where the display shows what the program was made for.
inline constexpr unsigned StandardGrey = 0xC0C0C0;

// Thrown by EndProgram. Only the two main functions and the event dispatch of the desktop catch it; a nested
// loop throws it on, so that destructors run all the way out.
struct ProgramEnd {};

class Host {
 public:
  virtual ~Host() = default;

  // The one way out of the program: closes all files, lets the user's windows go and throws ProgramEnd.
  [[noreturn]] void EndProgram();

  // What error messages call the system.
  virtual std::string SystemName() const { return ""; }

  virtual Answer MessageBox(const Message& message) = 0;

  // The message box of the error handler. A host without a user in front of it ends the run here.
  virtual Answer ErrorBox(const RunTimeError& error, const Message& message) {
    static_cast<void>(error);
    return MessageBox(message);
  }

  // Runs the message loop until `done` says so: a modal window is in front.
  virtual void RunModal(const std::function<bool()>& done) { static_cast<void>(done); }

  // Lets queued events run and windows repaint while long work is under way; what the user does with mouse
  // and keyboard meanwhile is lost.
  virtual void Yield() {}
  // Lets windows repaint, no more: what the user does waits its turn.
  virtual void Paint() {}
  virtual void SetMousePointer(MousePointer) {}
  virtual void SetClipboardText(const std::string&) {}
  // A page in HTML and UTF-8 beside its text, for programs that take one.
  virtual void SetClipboardPage(const std::string& text, const std::string& /*html*/) {
    SetClipboardText(text);
  }
  virtual std::string ClipboardText() { return ""; }
  // Plays a sound file and returns when it has ended; silence where it cannot.
  virtual void PlaySoundFile(const std::string&) {}
  virtual void Beep() {}
  virtual bool IsLocked(LockKey) { return false; }

  // The file that the user names, or nothing where the user cancels, as a host without a user does. Saving
  // asks before it takes a file that exists.
  virtual std::optional<std::string> AskOpenFile(const FileDialog&) { return std::nullopt; }
  virtual std::optional<std::string> AskSaveFile(const FileDialog&) { return std::nullopt; }
  virtual std::optional<Font> AskFont(const Font&) { return std::nullopt; }

  // Lets the user see the pages, choose a printer and print.
  virtual void Print(const PrintJob&) {}

  // Opens a document, a web page or a mail address ("mailto:...") with the system's viewer, or starts a
  // program; neither is waited for. Raise 53 where nothing answers.
  virtual void OpenDocument(const std::string&) {}
  virtual void StartProgram(const std::string&) {}

  // Shows the topic of this number beside the program's windows.
  virtual void ShowHelp(int /*topic*/) {}

  // 0xRRGGBB, of the background that windows are drawn on.
  virtual unsigned BackgroundColour() { return StandardGrey; }

 private:
  // Unloads the windows, which cannot prevent it, and keeps what they changed.
  virtual void UnloadWindows() {}
};

}  // namespace qel
