// What the lines of a journey do.

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/ListView.h"
#include "controls/Lists.h"
#include "controls/Pickers.h"
#include "controls/TextControls.h"
#include "core/ErrorHandler.h"
#include "core/Places.h"
#include "journeys/ControlNames.h"
#include "journeys/Design.h"
#include "journeys/Journey.h"
#include "platform/Clock.h"
#include "platform/Host.h"
#include "registry/RegistryStore.h"
#include "registry/RegistryText.h"
#include "startup/QELMain.h"
#include "support/Text.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// "1999-01-15" or "1999-01-15 12:30:00".
Date MomentOf(const std::string& text) {
  const auto part = [&text](std::size_t at, std::size_t size) { return std::stoi(text.substr(at, size)); };
  const Date day = DateSerial(part(0, 4), part(5, 2), part(8, 2));
  return text.size() < 19 ? day : day + TimeSerial(part(11, 2), part(14, 2), part(17, 2));
}

const struct {
  const char* name;
  Key key;
} KeyNames[] = {
    {"Enter", Key::Enter},   {"Escape", Key::Escape},     {"Up", Key::Up},     {"Down", Key::Down},
    {"PageUp", Key::PageUp}, {"PageDown", Key::PageDown}, {"Left", Key::Left}, {"Right", Key::Right},
    {"Home", Key::Home},     {"End", Key::End},           {"F1", Key::F1},     {"F3", Key::F3},
    {"Delete", Key::Delete},
};

KeyPress PressOf(std::string name) {
  KeyPress press;
  const auto take = [&name](const std::string& modifier) {
    const bool there = name.starts_with(modifier) && name.size() > modifier.size();
    if (there) name.erase(0, modifier.size());
    return there;
  };
  press.Control = take("Ctrl+");
  press.Alt = take("Alt+");
  press.Shift = take("Shift+");
  for (const auto& row : KeyNames)
    if (name == row.name) press.key = row.key;
  if (name == "Tab") press.Character = '\t';
  if (name == "Space") press.Character = ' ';
  if (name.size() == 1) press.Character = name.front();
  return press;
}

// The menu item that a key stands beside, by its design; nullptr where none does.
Control* ShortcutOf(const Form& form, const std::string& key) {
  for (Control* control : form.Controls())
    if (const Element* element = Design::Of(form).Of(*control);
        element && element->Property("shortcut") == key)
      return control;
  return nullptr;
}

// The button that the design marks, for Enter ("default") or for Escape.
Control* MarkedButton(const Form& form, const char* mark) {
  for (Control* control : form.Controls())
    if (const Element* element = Design::Of(form).Of(*control); element && element->IsSet(mark))
      return control;
  return nullptr;
}

}  // namespace

// By the act's first word.
const std::map<std::string, Journey::Handler> Journey::Acts = {
    // The scene.
    {"file", &Journey::file},
    {"folder",
     [](Journey& my, const Act& act) { std::filesystem::create_directories(my.folder.Path(act.Word(1))); }},
    {"remove",
     [](Journey& my, const Act& act) {
       std::filesystem::remove_all(my.folder.Path(act.Word(1)));
       my.files.erase(act.Word(1));
     }},
    {"today",
     [](Journey&, const Act& act) { StopClockAt(MomentOf(act.Word(1) + " " + act.WordOr(2, "12:00:00"))); }},
    {"region", [](Journey&, const Act& act) { setenv("LC_ALL", act.Word(1).c_str(), 1); }},
    {"answer",
     [](Journey& my, const Act& act) {
       my.answers.insert(my.answers.end(), act.Words.begin() + 1, act.Words.end());
     }},
    {"path", &Journey::path},
    {"font", &Journey::font},
    {"clip", [](Journey& my, const Act& act) { my.clipboard = FromUtf8Lossy(act.Word(1)); }},
    {"disk", &Journey::disk},
    {"each", [](Journey&, const Act&) {}},  // of errors, in the way of the act behind it
    {"hold", [](Journey& my,
                const Act& act) { my.held[act.Word(1)].open(my.folder.Path(act.Word(1)), std::ios::app); }},
    {"release", [](Journey& my, const Act& act) { my.held.erase(act.Word(1)); }},
    {"set", &Journey::set},
    {"system", [](Journey& my, const Act& act) { my.Windows->session.places.OSName = act.Word(1); }},
    {"installed", [](Journey& my, const Act& act) { my.onlyProgram = act.Word(1); }},
    {"background",
     [](Journey& my, const Act& act) {
       my.backgroundColour = static_cast<unsigned>(std::stoul(act.Word(1), nullptr, 16));
     }},
    {"lock", [](Journey& my, const Act& act) { my.locked = act.Word(1); }},
    {"watch", [](Journey& my, const Act&) { my.watches = true; }},
    {"trace", [](Journey& my, const Act&) { my.traces = true; }},
    {"meanwhile", [](Journey& my, const Act& act) { my.yieldsLeft = std::stoi(act.WordOr(1, "1")); }},
    // The user.
    {"error",
     [](Journey& my, const Act& act) {
       const RunTimeError error(std::stoi(act.Word(1)), "Disk", 5);
       my.Tell("result " + std::to_string(ErrorHandler(error)));
     }},
    {"start", &Journey::start},
    {"click", &Journey::click},
    {"double-click",
     [](Journey& my, const Act& act) {
       if (Control& control = my.Named(act); my.CanUse(control)) my.DoubleClick(control);
     }},
    {"type", &Journey::type},
    {"select", &Journey::select},
    {"key", [](Journey& my, const Act& act) { my.Press(*my.OnScreen().ActiveForm, act.Word(1)); }},
    {"choose", &Journey::choose},
    {"pick", [](Journey& my, const Act& act) { my.Pick(my.NamedAs<Calendar>(act), MomentOf(act.Word(2))); }},
    {"column",
     [](Journey& my, const Act& act) { my.ClickColumn(my.NamedAs<ListView>(act), std::stoi(act.Word(2))); }},
    {"up", [](Journey& my, const Act& act) { my.Step(my.NamedAs<UpDown>(act), true); }},
    {"down", [](Journey& my, const Act& act) { my.Step(my.NamedAs<UpDown>(act), false); }},
    {"follow", [](Journey& my, const Act& act) { my.Follow(my.NamedAs<Document>(act), act.Word(2)); }},
    {"point", &Journey::point},
    {"width",
     [](Journey& my,
        const Act&
            act) { my.NamedAs<ListView>(act).UserColumnWidth(std::stoi(act.Word(2)), std::stoi(act.Word(3))); }},
    {"move", &Journey::move},
    {"resize", &Journey::resize},
    {"minimize", &Journey::state},
    {"maximize", &Journey::state},
    {"restore", &Journey::state},
    {"close", [](Journey& my, const Act& act) { my.Close(my.FormNamed(act.Word(1))); }},
    {"activate", [](Journey& my, const Act& act) { my.Activate(my.FormNamed(act.Word(1))); }},
    {"tick", &Journey::tick},
    {"show", &Journey::show},
};

Form& Journey::FormNamed(const std::string& name) const {
  if (Form* form = OnScreen().LoadedForm(name); form && form->Visible()) return *form;
  throw std::runtime_error("no window " + name);
}

// "btnOK", "optFormat(1)", "frmReport.mnuSummary".
Control& Journey::Named(const Act& act, std::size_t place) {
  std::string name = act.Word(place);
  Form* const inFront = OnScreen().ActiveForm;
  Form* form = inFront;
  if (const auto dot = name.find('.'); dot != std::string::npos) {
    form = &FormNamed(name.substr(0, dot));
    name.erase(0, dot + 1);
    if (form != inFront && inFront && inFront->IsModal()) Fail(act, "a modal window is in front");
    form->Activate();
  }
  if (!form) Fail(act, "no window is in front");
  for (Control* control : form->Controls())
    if (NameOf(*control) == name) {
      if (!control->IsShown()) Fail(act, name + " is not to be seen");
      return *control;
    }
  Fail(act, form->Name() + " has no " + name);
}

bool Journey::CanUse(const Control& control) {
  const Design& design = Design::Of(control.Parent());
  for (const Control* menu : control.Parent().Controls())
    if (const Element* element = design.Of(*menu); element && !menu->Usable())
      for (const Element& item : element->Children)
        if (item.Tag == "addaction" && item.Name() == control.Name())
          return Tell(NameOf(*menu) + " is off"), false;
  if (!control.Usable()) Tell(NameOf(control) + " is off");
  return control.Usable();
}

template <class Kind>
Kind& Journey::NamedAs(const Act& act) {
  if (auto* control = dynamic_cast<Kind*>(&Named(act))) return *control;
  Fail(act, act.Word(1) + " is of another kind");
}

std::string Journey::WithFolder(const std::string& text) const {
  return WithEach(text, "~/", folder.Path(""));
}

// file NAME, copied from a file of the project, with the lines behind "> " below it; "~/" is the folder.
void Journey::file(const Act& act) {
  std::string content;
  if (act.WordOr(2, "") == "from") {
    std::ifstream source(std::string(QEL_SOURCE_DIR) + "/" + act.Word(3), std::ios::binary);
    if (!source) Fail(act, "no " + act.Word(3));
    content.assign(std::istreambuf_iterator<char>(source), {});
  }
  for (const std::string& line : act.Content) content += line + "\r\n";
  content = WithFolder(content);
  std::filesystem::create_directories(std::filesystem::path(folder.Path(act.Word(1))).parent_path());
  folder.Put(act.Word(1), content);
  files[act.Word(1)] = content;
}

void Journey::path(const Act& act) {
  const std::string& name = act.Word(1);
  if (name == "cancel") return paths.push_back(std::nullopt);
  paths.push_back(name.starts_with('/') ? name : folder.Path(name));
}

void Journey::font(const Act& act) {
  const auto says = [&act](const char* word) {
    return std::ranges::find(act.Words, word) != act.Words.end();
  };
  fonts.push_back({act.Word(1), std::stof(act.WordOr(2, "10")), says("bold"), says("italic")});
}

void Journey::disk(const Act& act) {
  if (act.Word(1) == "works") return failing.Mend();
  const int error = act.Word(1) == "full" ? ENOSPC : EIO;
  if (act.Word(2) == "from") return failing.FailFrom(std::stoi(act.Word(3)), error);
  failing.FailNth(std::stoi(act.Word(2)), error);
}

void Journey::OpenDocument(const std::string& document) {
  if (onlyProgram == "none") Raise(FileNotFound);
  Tell("document " + Shortened(document));
}

void Journey::StartProgram(const std::string& command) {
  if (onlyProgram && *onlyProgram != command) Raise(FileNotFound);
  Tell("program " + Shortened(command));
}

void Journey::set(const Act& act) {
  RegistryTree tree = StoredTree();
  std::string key = act.Word(1);
  if (key == "International") key = "HKEY_CURRENT_USER\\Control Panel\\International";
  if (!key.starts_with("HKEY_")) key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\" + key;
  const std::string value = WithFolder(act.Word(3));
  const bool isNumber =
      !value.empty() && value.find_first_not_of("0123456789") == std::string::npos && act.Words.size() == 4;
  MakeKey(tree, key)[act.Word(2)] =
      isNumber ? RegistryValue{REG_DWORD, DwordBytes(static_cast<std::uint32_t>(std::stoul(value)))}
               : RegistryValue{REG_SZ, FromUtf8Lossy(value) + '\0'};
  folder.Put("registry.reg", WriteRegistryFile(tree));
  files["registry.reg"] = folder.Content("registry.reg");
}

// What the settings file holds; nothing where it cannot be read.
RegistryTree Journey::StoredTree() const {
  try {
    return ParseRegistryFile(folder.Content("registry.reg"));
  } catch (const std::exception&) {
    return {};
  }
}

// The program as a process of its own; one that runs is gone first, as if it had been killed.
void Journey::start(const Act&) {
  if (depth > 1) {
    isKilled = true;
    throw ProgramEnd();
  }
  Windows = &newProcess();
  around.emplace(*this, *this);
  windows.clear();
  fronts.clear();
  front.clear();
  pointer = pointerTold = MousePointer::Default;
  store = StoredTree();
  Start();
}

void Journey::Start() {
  Windows->Screen.AttachFace = [](Form& form) { Design::Of(form).TellTo(form); };
  qel::StartProgram(*Windows);
}

void Journey::click(const Act& act) {
  Control& control = Named(act);
  if (!CanUse(control)) return;
  if (auto* bar = dynamic_cast<Toolbar*>(&control)) {
    if (!bar->Button(act.Word(2)).Enabled) return Tell(act.Word(2) + " is off");
    return ClickTool(*bar, act.Word(2));
  }
  if (auto* list = dynamic_cast<ListView*>(&control)) return ClickRow(*list, std::stoi(act.Word(2)));
  if (auto* strip = dynamic_cast<TabStrip*>(&control)) {
    for (std::size_t i = 0; i < strip->Tabs().size(); ++i)
      if (strip->Tabs()[i].Caption == act.Word(2)) return ClickTab(*strip, static_cast<int>(i) + 1);
    Fail(act, "no tab " + act.Word(2));
  }
  for (int times = std::stoi(act.WordOr(2, "1")); times > 0; --times) Click(control);
}

void Journey::type(const Act& act) {
  std::string text = act.Word(2);
  if (text.starts_with("~/")) text.replace(0, 1, folder.Path());
  if (Control& control = Named(act); CanUse(control)) Type(control, FromUtf8Lossy(text));
}

void Journey::select(const Act& act) {
  auto& box = NamedAs<TextBox>(act);
  box.SetFocus();
  box.Select(std::stoi(act.Word(2)), std::stoi(act.Word(3)));
}

void Journey::choose(const Act& act) {
  ListBox& list = NamedAs<ListBox>(act);
  const std::string wanted = FromUtf8Lossy(act.Word(2));
  const auto found =
      std::ranges::find_if(list.Items(), [&](const auto& item) { return Trim(item) == wanted; });
  if (found == list.Items().end()) Fail(act, "no entry " + act.Word(2));
  if (CanUse(list)) Choose(list, static_cast<int>(found - list.Items().begin()));
}

// As people do: everything selected, the new text over it. Nothing typed is the delete key.
void Journey::Type(Control& control, const std::string& text) {
  control.SetFocus();
  if (!control.HasFocus()) return Tell(NameOf(*OnScreen().ActiveForm->ActiveControl()) + " keeps the focus");
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) return combo->UserText(text);
  auto& box = dynamic_cast<TextBox&>(control);
  const int length = static_cast<int>(box.Text().size());
  if (text.empty()) return box.UserReplace(0, length, "");
  box.Select(0, length);
  box.UserType(text);
}

// A key goes to the window, then to the control that has the focus, as the face hands it on.
void Journey::Press(Form& form, const std::string& key) {
  if (Control* item = ShortcutOf(form, key)) return item->UserClick();
  KeyPress press = PressOf(key);
  if (press.Character == '\t' && !press.Control) return form.MoveFocusOn(press.Shift);
  form.UserKey(press);
  if (press.Handled || !form.IsLoaded()) return;
  Control* const active = form.ActiveControl();
  auto* const box = dynamic_cast<TextBox*>(active);
  if (box && key == "Ctrl+V") return box->UserPaste(clipboard);
  Control* button = nullptr;
  if (press.key == Key::Escape) button = MarkedButton(form, "escape");
  if (press.key == Key::Enter)
    button = dynamic_cast<Button*>(active) ? active : MarkedButton(form, "default");
  if (press.Character == ' ' && !box) button = active;
  if (box && press.Character != 0 && !press.Control && !press.Alt)
    box->UserType(std::string(1, press.Character));
  if (button) button->UserClick();
}

void Journey::Choose(ListBox& list, int index) {
  list.SetFocus();
  list.UserChoose(index);
}

// The mouse moves over a control, or over a place of the window where there is none.
void Journey::point(const Act& act) {
  if (Form* const form = OnScreen().ActiveForm; form && act.Word(1) == form->Name()) return form->MouseMove();
  Point(Named(act));
}

void Journey::move(const Act& act) {
  Form& form = FormNamed(act.Word(1));
  form.Left = std::stoi(act.Word(2));
  form.Top = std::stoi(act.Word(3));
}

void Journey::state(const Act& act) {
  static const std::map<std::string, WindowState> states = {{"minimize", WindowState::Minimized},
                                                            {"maximize", WindowState::Maximized},
                                                            {"restore", WindowState::Normal}};
  FormNamed(act.Word(1)).WindowState = states.at(act.Word(0));
}

void Journey::resize(const Act& act) {
  if (!OnScreen().LoadedForm(act.Word(1))) {
    Control& control = Named(act);
    control.Width = std::stoi(act.Word(2));
    control.Height = std::stoi(act.Word(3));
    return;
  }
  Form& form = FormNamed(act.Word(1));
  form.Width = std::stoi(act.Word(2));
  form.Height = std::stoi(act.Word(3));
}

void Journey::tick(const Act& act) {
  auto& timer = NamedAs<Timer>(act);
  if (!timer.Enabled) return Tell(NameOf(timer) + " is off");
  for (int times = std::stoi(act.WordOr(2, "1")); times > 0; --times) timer.Tick();
}

// show WINDOW [with tips]; show WINDOW.CONTROL; show file NAME
void Journey::show(const Act& act) {
  if (act.Word(1) == "file") {
    if (!folder.Has(act.Word(2))) return Tell("no such file");
    const std::string content = folder.Content(act.Word(2));
    return TellLines(IsUtf8(content) ? FromUtf8Lossy(content) : content);
  }
  const auto dot = act.Word(1).find('.');
  if (const Form* form = OnScreen().LoadedForm(act.Word(1).substr(0, dot)); !form || !form->Visible())
    return Tell("not to be seen");
  if (dot != std::string::npos) {
    for (const Shown& control : WindowText(FormNamed(act.Word(1).substr(0, dot)), false))
      if (control.Name == act.Word(1).substr(dot + 1)) return TellChanged(control);
    return Tell("not to be seen");
  }
  const Form& form = FormNamed(act.Word(1));
  Tell(form.Name() + " \"" + ToUtf8(form.Caption()) + '"' + WindowPlace(form, false));
  for (const Shown& control : WindowText(form, act.WordOr(2, "") == "with"))
    for (const std::string& line : control.Lines) Tell("  " + line);
  if (const Control* active = form.ActiveControl()) Tell("  focus on " + NameOf(*active));
}

}  // namespace qel
