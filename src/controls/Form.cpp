#include "controls/Form.h"

#include <algorithm>
#include <utility>

#include "core/Surroundings.h"

namespace qel {

Form* Screen::LoadedForm(std::string_view name) const {
  for (Form* form : LoadedForms)
    if (form->Name() == name) return form;
  return nullptr;
}

Form::Form(std::string name, qel::Screen& screen) : Screen(screen), name(std::move(name)) {}

Form::~Form() {
  Face.reset();
  std::erase(Screen.LoadedForms, this);
  LeaveFront();
}

void Form::LeaveFront() {
  if (Screen.LastAtWork == this) Screen.LastAtWork = nullptr;
  if (Screen.ActiveForm == this) Screen.ActiveForm = StandsAside ? Screen.LastAtWork : nullptr;
}

void Form::Load() {
  if (loaded) return;
  // Before it counts as loaded: the design's sizes are no resizing.
  if (Screen.AttachFace) Screen.AttachFace(*this);
  loaded = true;
  Screen.LoadedForms.push_back(this);
  Form_Load();
}

void Form::Show() {
  Load();
  if (!loaded) return;  // Form_Load may have unloaded it
  if (!std::exchange(visible, true)) {
    ShowChange();
    Form_Resize();
    if (!active) MoveFocusOn();
  }
  Activate();
}

void Form::ShowModal() {
  modal = true;
  Show();
  CurrentHost().RunModal([this] { return !visible; });
}

void Form::Hide() {
  LeaveFront();
  if (std::exchange(visible, false)) ShowChange();
}

bool Form::Unload() {
  if (!loaded) return true;
  if (!Form_Unload()) return false;
  Vanish();
  return true;
}

void Form::UnloadAtTheEnd() {
  if (!loaded || std::exchange(endIsCertain, true)) return;
  Form_Unload();
  Vanish();
}

void Form::Vanish() {
  std::erase(Screen.LoadedForms, this);
  loaded = false;
  unloaded = true;
  active = entered = nullptr;
  Hide();
  Face.reset();
}

void Form::Activate() {
  if (!visible || Screen.ActiveForm == this) return;
  const bool comesBack = Screen.ActiveForm && Screen.ActiveForm->StandsAside && Screen.LastAtWork == this;
  Screen.ActiveForm = this;
  if (!StandsAside) Screen.LastAtWork = this;
  ShowChange();
  if (!comesBack) Form_Activate();
}

void Form::UserKey(KeyPress& press) {
  KeyDown(press);
  if (!press.Handled && active) active->UserKey(press);
  if (press.Handled || press.key != Key::F1 || !loaded) return;
  press.Handled = true;
  CurrentHost().ShowHelp(HelpContextID);
}

Control* Form::Find(std::string_view controlName, int index) const {
  for (Control* control : controls)
    if (control->Name() == controlName && control->Index() == index) return control;
  return nullptr;
}

void Form::MoveFocusTo(Control& control) {
  if (active == &control || !control.CanHaveFocus()) return;
  Exit(std::exchange(active, &control));
  if (active != &control) return;  // the field that was left took the focus back
  entered = &control;
  control.ShowChange();
  control.TakeEntry();
  control.GotFocus();
}

bool Form::LeaveFocus() {
  Exit(std::exchange(active, nullptr));
  return !active;
}

// One that was about to be entered when the focus was taken back has none to lose: two fields that both
// insist would send it to and fro for ever.
void Form::Exit(Control* left) {
  if (!left) return;
  left->ShowChange();
  if (left != entered) return;
  left->TakeExit();
  left->LostFocus();
}

void Form::MoveFocusOn(bool backward) {
  const auto count = controls.size();
  const auto found = std::find(controls.begin(), controls.end(), active);
  // Without an active control the first one comes, or the last.
  std::size_t at = found != controls.end() ? static_cast<std::size_t>(found - controls.begin())
                                           : (backward ? 0 : count - 1);
  if (!LeaveFocus()) return;
  for (std::size_t tried = 0; tried < count; ++tried) {
    at = (at + (backward ? count - 1 : 1)) % count;
    if (controls[at]->CanHaveFocus()) return MoveFocusTo(*controls[at]);
  }
}

void Form::Leave(Control& control) {
  std::erase(controls, &control);
  if (active == &control) active = nullptr;
  if (entered == &control) entered = nullptr;
}

}  // namespace qel
