#include "journeys/Journey.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <stdexcept>

#include "core/Surroundings.h"
#include "journeys/ControlNames.h"
#include "journeys/Design.h"
#include "registry/RegistryStore.h"
#include "settings/StoredValues.h"
#include "support/Text.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

const char* const AnswerNames[] = {"", "OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"};
const char* const IconNames[] = {"", "critical", "question", "exclamation", "information"};

const std::map<Buttons, std::vector<std::string>> ButtonNames = {
    {Buttons::OK, {"OK"}},
    {Buttons::OKCancel, {"OK", "Cancel"}},
    {Buttons::AbortRetryIgnore, {"Abort", "Retry", "Ignore"}},
    {Buttons::YesNo, {"Yes", "No"}},
};

std::string ValueText(const RegistryValue& value) {
  if (value.Type == REG_SZ) return '"' + ToUtf8(value.Data.substr(0, value.Data.find('\0'))) + '"';
  if (value.Type == REG_BINARY) {
    std::string bytes = "hex";
    for (const unsigned char byte : value.Data)
      bytes += std::string(" ") + "0123456789abcdef"[byte / 16] + "0123456789abcdef"[byte % 16];
    return bytes;
  }
  return std::to_string(static_cast<std::int32_t>(DwordOf(value.Data)));
}

// "\General\" for the program's own keys, the whole path for others.
std::string KeyText(const std::string& key) {
  const std::string own = KeyPath(SettingsRoot, SettingsKey);
  return (key.starts_with(own) ? key.substr(own.size()) : key) + "\\";
}

}  // namespace

Journey::Journey(Script& script, const TemporaryFolder& folder, std::function<qel::Windows&()> newProcess)
    : script(script), folder(folder), newProcess(std::move(newProcess)) {
  diskInPlace.emplace(failing);
}

void Journey::Play() {
  while (next < script.Acts().size()) {
    try {
      PlayAct();
    } catch (const ProgramEnd&) {
      depth = 0;
      if (std::exchange(isKilled, false)) {
        next = current;
        continue;
      }
      Tell("the program ends");
      TellConsequences();
    }
  }
  if (!answers.empty() || !paths.empty()) Fail(script.Acts().back(), "answers that nobody asked for");
}

void Journey::PlayAct() {
  current = next++;
  const Act& act = script.Acts()[current];
  const auto handler = Acts.find(act.Words[0]);
  if (handler == Acts.end()) Fail(act, "no such act");
  ++depth;
  handler->second(*this, act);
  if (HasEnded()) throw ProgramEnd();
  if (--depth == 0 && !OnScreen().ActiveForm) BringToTheFront();
  Form* const form = OnScreen().ActiveForm;
  // Where the control that had the focus has gone, another one has it.
  if (const Control* active = form ? form->ActiveControl() : nullptr; active && !active->CanHaveFocus())
    form->MoveFocusOn();
  TellConsequences();
}

// As the window system does where the window in front has gone: the one before it comes.
void Journey::BringToTheFront() {
  for (auto name = fronts.rbegin(); name != fronts.rend(); ++name)
    if (Form* form = OnScreen().LoadedForm(*name); form && form->Visible()) return form->Activate();
  for (Form* form : OnScreen().LoadedForms)
    if (form->Visible()) return form->Activate();
}

void Journey::Fail(const Act& act, const std::string& why) {
  const std::string place = "line " + std::to_string(act.Line) + ": " + act.Words[0] + ": ";
  Stop(place + why);
  throw std::runtime_error(place + why);
}

void Journey::Tell(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  constexpr std::size_t Most = 2000;  // some messages come again for as long as their cause stands
  auto& now = script.Acts()[current].Now;
  if (now.size() == Most) Fail(script.Acts()[current], "it does not end");
  now.push_back(Shortened(line));
}

std::string Journey::Shortened(const std::string& text) const { return WithEach(text, folder.Path(), "~"); }

// The lines of a text, however they are divided. A pilcrow makes blanks at the end of a line visible.
void Journey::TellLines(const std::string& text) {
  const auto tell = [this](const std::string& line) {
    Tell("| " + ToUtf8(line) + (line.ends_with(' ') ? "\u00B6" : ""));
  };
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') {
      line += text[i];
      continue;
    }
    tell(std::exchange(line, ""));
    if (text.compare(i, 2, "\r\n") == 0) ++i;
  }
  if (!line.empty()) tell(line);
}

// The program, in the middle of its work, lets windows show what there is, or takes what comes.
void Journey::AtWork() {
  if (watches) TellWindows();
  if (yieldsLeft > 0 && --yieldsLeft == 0) PlayAct();
}

void Journey::TellConsequences() {
  TellWindows();
  TellStore();
  TellDisk();
}

// What changed on the windows; all of a window that came up since is one `show` away.
void Journey::TellWindows() {
  std::map<std::string, std::vector<Shown>> now;
  for (const Form* form : OnScreen().LoadedForms) {
    if (!form->Visible()) continue;
    const std::string& name = form->Name();
    auto& controls = now[name] = WindowText(*form, false);
    const std::string caption = name + " \"" + ToUtf8(form->Caption()) + '"';
    if (!windows.contains(name)) {
      Tell(caption + " opens" + (form->IsModal() ? ", modal" : ""));
    } else {
      if (captions[name] != caption) Tell(caption);
      const auto& before = windows[name];
      for (const Shown& control : controls)
        if (std::ranges::find(before, control) == before.end()) TellChanged(control);
      std::string gone;
      for (const Shown& control : before)
        if (std::ranges::find(controls, control.Name, &Shown::Name) == controls.end())
          gone += (gone.empty() ? "  gone: " : ", ") + control.Name;
      if (!gone.empty()) Tell(gone);
    }
    // Where a window opens is its own affair; told is that it grows or goes elsewhere.
    const std::string place = WindowPlace(*form, true);
    if (std::exchange(places[name], place) != place && windows.contains(name)) Tell(name + place);
    captions[name] = caption;
  }
  for (const auto& [name, controls] : windows)
    if (!now.contains(name)) Tell(name + " closes");
  windows = std::move(now);
  TellFocus();
  if (pointer != pointerTold) Tell(pointer == MousePointer::Hourglass ? "hourglass" : "arrow");
  pointerTold = pointer;
  if (const std::string trace =
          CurrentSurroundings().ModuleTrace + "." + CurrentSurroundings().ProcedureTrace;
      traces && trace != std::exchange(traceTold, trace))
    Tell("trace " + trace);
}

// A window whose layout decides its size has none that the program knows.
std::string Journey::WindowPlace(const Form& form, bool withPosition) {
  static const char* const states[] = {"", ", minimized", ", maximized"};
  if (!Design::Of(form).HasSize()) return "";
  return " " + std::to_string(form.Width()) + " x " + std::to_string(form.Height()) +
         (withPosition ? " at " + std::to_string(form.Left()) + ", " + std::to_string(form.Top()) : "") +
         states[static_cast<int>(form.WindowState())];
}

void Journey::TellFocus() {
  const Form* const form = OnScreen().ActiveForm;
  if (!form || windows.empty()) return;
  const std::string inFront = form->Name();
  if (inFront != front && windows.size() > 1) Tell(inFront + " is in front");
  front = inFront;
  std::erase(fronts, inFront);
  fronts.push_back(inFront);
  const Control* const active = form->ActiveControl();
  const std::string now = active ? inFront + "." + NameOf(*active) : "";
  if (now != focus && active) Tell("  focus on " + NameOf(*active));
  focus = now;
}

// Where it stands in its window does not matter here.
void Journey::TellChanged(const Shown& control) {
  const auto indent = control.Lines.front().find_first_not_of(' ');
  for (const std::string& line : control.Lines) Tell("  " + line.substr(indent));
}

void Journey::TellStore() {
  if (!Windows) return;
  const RegistryTree& tree = Windows->session.store.Tree();
  if (tree == store) return;
  for (const auto& [key, values] : tree) {
    const auto before = store.find(key);
    for (const auto& [name, value] : values) {
      const bool isNew = before == store.end() || !before->second.contains(name);
      if (isNew || before->second.find(name)->second != value)
        Tell("setting " + KeyText(key) + name + " = " + ValueText(value));
    }
    if (before != store.end())
      for (const auto& [name, value] : before->second)
        if (!values.contains(name)) Tell("setting " + KeyText(key) + name + " is gone");
  }
  store = tree;
}

void Journey::TellDisk() {
  std::map<std::string, std::string> now;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path()))
    if (entry.is_regular_file() && entry.path().extension() != ".lock") {
      const std::string name = entry.path().lexically_relative(folder.Path()).string();
      now[name] = folder.Content(name);
    }
  for (const auto& [name, content] : now)
    if (!files.contains(name) || files[name] != content)
      Tell(name == "registry.reg" ? "settings saved"
                                  : "file " + name + ", " + std::to_string(content.size()) + " bytes");
  for (const auto& [name, content] : files)
    if (!now.contains(name)) Tell("file " + name + " is gone");
  files = std::move(now);
}

Answer Journey::MessageBox(const Message& message) {
  TellWindows();
  std::string line = "message \"" + ToUtf8(message.Title) + '"';
  if (message.icon != Icon::None) line += std::string(" ") + IconNames[static_cast<int>(message.icon)];
  const std::vector<std::string>& possible = ButtonNames.at(message.buttons);
  for (int place = 1; const std::string& name : possible) {
    line += " [" + name + (possible.size() > 1 && place == message.DefaultButton ? "*]" : "]") +
            (place == message.EscapeButton ? " by Escape" : "");
    ++place;
  }
  if (message.HelpContext != 0) line += " [Help " + std::to_string(message.HelpContext) + "]";
  Tell(line);
  TellLines(message.Text);
  if (possible.size() == 1) return Answer::OK;
  const std::string answer = AnswerTo(message, possible);
  if (std::ranges::find(possible, answer) == possible.end())
    Fail(script.Acts()[current], "an answer that no button gives");
  Tell("answered " + answer);
  return static_cast<Answer>(std::ranges::find(AnswerNames, answer) - AnswerNames);
}

std::string Journey::AnswerTo(const Message& message, const std::vector<std::string>& /*possible*/) {
  if (answers.empty()) Fail(script.Acts()[current], "nobody answers \"" + message.Title + '"');
  std::string answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

// The script goes on in the modal window.
void Journey::RunModal(const std::function<bool()>& done) {
  PlayWhile([&] { return !done(); });
}

void Journey::PlayWhile(const std::function<bool()>& goesOn) {
  TellConsequences();
  while (goesOn() && next < script.Acts().size()) {
    PlayAct();
    if (goesOn()) BringToTheFront();
  }
}

void Journey::SetMousePointer(MousePointer shape) { pointer = shape; }

void Journey::SetClipboardText(const std::string& text) {
  clipboard = text;
  Tell("clipboard");
  TellLines(text);
}

void Journey::SetClipboardPage(const std::string& text, const std::string& html) {
  const auto title = html.find("<title>") + 7;
  Tell("page for the clipboard: " + html.substr(title, html.find("</title>") - title));
  SetClipboardText(text);
}

void Journey::PlaySoundFile(const std::string& path) {
  Tell("sound " + path);
  AtWork();
}

std::optional<std::string> Journey::NextPath(const std::string& kind, const FileDialog& dialog) {
  Tell(kind + " dialogue, in \"" + dialog.Folder + "\", \"" + dialog.FileName + "\", " +
       ToUtf8(dialog.Filter));
  if (paths.empty()) Fail(script.Acts()[current], "nobody names a file");
  const auto path = paths.front();
  paths.pop_front();
  return path;
}

std::optional<std::string> Journey::AskOpenFile(const FileDialog& dialog) { return NextPath("open", dialog); }
std::optional<std::string> Journey::AskSaveFile(const FileDialog& dialog) { return NextPath("save", dialog); }

std::optional<Font> Journey::AskFont(const Font& font) {
  Tell("font dialogue, " + font.Name);
  if (fonts.empty()) return std::nullopt;
  const Font chosen = fonts.front();
  fonts.pop_front();
  return chosen;
}

void Journey::Print(const PrintJob& job) {
  Tell("print \"" + ToUtf8(job.Title) + "\", " + job.Font.Name + " " + NumberText(job.Font.Size) + ", " +
       std::to_string(job.Left) + " from the left");
  TellLines(job.Text);
  for (const Drawing& drawing : job.Drawings) Tell("  drawing \"" + ToUtf8(drawing.Heading) + '"');
}

}  // namespace qel
