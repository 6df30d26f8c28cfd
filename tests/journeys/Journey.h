// Plays a script on the windows' models, as a user would go through the program, and writes down what can be
// seen: below each act all that it changed on the screen, what the program asked of its surroundings, and
// what became different in the settings store and on the disk. Nothing is sampled: what is not told has not
// changed.
//
// Acts on a window name its controls; "frmReport.mnuSummary" reaches into a window that is not in front.
#pragma once

#include <deque>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "controls/Bars.h"
#include "controls/ListView.h"
#include "controls/Lists.h"
#include "controls/Pickers.h"
#include "controls/TextControls.h"
#include "core/Surroundings.h"
#include "journeys/Script.h"
#include "journeys/WindowText.h"
#include "registry/RegistryTree.h"
#include "support/FailingDisk.h"
#include "support/TemporaryFolder.h"
#include "ui/WindowHost.h"

namespace qel {

class Journey : public WindowHost {
 public:
  // Files lie in `folder`, which the transcript calls "~". `newProcess` makes the program as a new process
  // has it.
  Journey(Script& script, const TemporaryFolder& folder, std::function<qel::Windows&()> newProcess);
  void Play();

 protected:
  // Plays on while `goesOn` and there are acts left.
  void PlayWhile(const std::function<bool()>& goesOn);
  void RunModal(const std::function<bool()>& done) override;
  std::string ClipboardText() override { return clipboard; }
  // The next one of the script, unless somebody else answers.
  virtual std::string AnswerTo(const Message& message, const std::vector<std::string>& possible);
  std::size_t NextAct() const { return next; }
  bool DiskFailed() const { return failing.Failed(); }
  void Tell(std::string line);
  std::string Shortened(const std::string& text) const;

  virtual void Start();
  virtual bool HasEnded() { return false; }
  virtual void Stop(const std::string& /*why*/) {}

  // What the user's hands do to controls that can be used. The models are driven directly here; a face has
  // hands of its own.
  virtual void Click(Control& control) { control.UserClick(); }
  virtual void DoubleClick(Control& control) {
    control.UserClick();
    control.UserDblClick();
  }
  virtual void ClickTool(Toolbar& bar, const std::string& key) { bar.UserButtonClick(key); }
  virtual void ClickTab(TabStrip& strip, int tab) { strip.UserSelectTab(tab); }
  virtual void ClickRow(ListView& list, int row) { list.UserSelect(row); }
  virtual void ClickColumn(ListView& list, int column) { list.UserColumnClick(column); }
  virtual void Type(Control& control, const std::string& text);
  virtual void Press(Form& form, const std::string& key);
  virtual void Choose(ListBox& list, int index);
  virtual void Pick(Calendar& calendar, Date day) { calendar.UserPick(day); }
  virtual void Point(Control& control) { control.MouseMove(); }
  virtual void Step(UpDown& button, bool up) { up ? button.UserUp() : button.UserDown(); }
  virtual void Follow(Document& page, const std::string& target) { page.UserLink(target); }
  virtual void Close(Form& form) { form.Unload(); }
  virtual void Activate(Form& form) { form.Activate(); }

 private:
  using Handler = std::function<void(Journey&, const Act&)>;
  static const std::map<std::string, Handler> Acts;

  // Of the process that runs; empty where none does.
  const Screen& OnScreen() const { return Windows ? Windows->Screen : dark; }
  void PlayAct();
  void BringToTheFront();
  void AtWork();
  void TellConsequences();
  void TellWindows();
  static std::string WindowPlace(const Form& form, bool withPosition);
  void TellFocus();
  void TellChanged(const Shown& control);
  RegistryTree StoredTree() const;
  void TellStore();
  void TellDisk();
  void TellLines(const std::string& text);
  std::string WithFolder(const std::string& text) const;

  // Host
  Answer MessageBox(const Message& message) override;
  void Yield() override { AtWork(); }
  void Paint() override { AtWork(); }
  unsigned BackgroundColour() override { return backgroundColour; }
  bool IsLocked(LockKey key) override { return locked == (key == LockKey::Caps ? "Caps" : "Scroll"); }
  void SetMousePointer(MousePointer shape) override;
  void SetClipboardText(const std::string& text) override;
  void SetClipboardPage(const std::string& text, const std::string& html) override;
  void PlaySoundFile(const std::string& path) override;
  void Beep() override { Tell("beep"); }
  std::optional<std::string> AskOpenFile(const FileDialog& dialog) override;
  std::optional<std::string> AskSaveFile(const FileDialog& dialog) override;
  std::optional<Font> AskFont(const Font& font) override;
  void Print(const PrintJob& job) override;
  void OpenDocument(const std::string& document) override;
  void StartProgram(const std::string& command) override;
  std::optional<std::string> NextPath(const std::string& kind, const FileDialog& dialog);

  // Acts that set the scene
  void file(const Act& act);
  void path(const Act& act);
  void font(const Act& act);
  void disk(const Act& act);
  void set(const Act& act);

  // Acts of the user
  void start(const Act& act);
  void click(const Act& act);
  void type(const Act& act);
  void select(const Act& act);
  void choose(const Act& act);
  void point(const Act& act);
  void move(const Act& act);
  void resize(const Act& act);
  void state(const Act& act);
  void tick(const Act& act);

  void show(const Act& act);

  // The control that an act names by its second word; in front of all other windows that the user can reach.
  Control& Named(const Act& act, std::size_t place = 1);
  template <class Kind>
  Kind& NamedAs(const Act& act);
  Form& FormNamed(const std::string& name) const;
  // Tells of what is off; true where it is not.
  bool CanUse(const Control& control);
  [[noreturn]] void Fail(const Act& act, const std::string& why);

  Script& script;
  const TemporaryFolder& folder;
  const std::function<qel::Windows&()> newProcess;
  const Screen dark{};
  std::size_t next = 0;     // act
  std::size_t current = 0;  // act
  int depth = 0;            // of acts under way, each in a modal window of the one before
  bool isKilled = false;    // with modal windows open, by the start of another process
  std::deque<std::string> answers;
  std::deque<std::optional<std::string>> paths;
  std::deque<Font> fonts;
  std::string clipboard;
  std::optional<std::string> onlyProgram;  // that is installed; all are where it is not told
  std::string locked;                      // key
  unsigned backgroundColour = StandardGrey;
  int yieldsLeft = 0;    // of the program, until it is interrupted by the next act; 0 for never
  bool traces = false;   // what an error would name as its place
  bool watches = false;  // what is to be seen while the program works
  MousePointer pointer = MousePointer::Default;
  std::map<std::string, std::ofstream> held;
  FailingDisk failing;
  std::optional<DiskInPlace> diskInPlace;
  std::optional<Surroundings> around;  // of the process that runs, if one does

  // As it was told last.
  std::map<std::string, std::vector<Shown>> windows;
  std::map<std::string, std::string> captions, places;
  std::string front, focus, traceTold;
  std::vector<std::string>
      fronts;  // the windows in the order in which they came to the front, the last one last
  MousePointer pointerTold = MousePointer::Default;
  RegistryTree store;
  std::map<std::string, std::string> files;
};

}  // namespace qel
