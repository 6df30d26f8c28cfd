// A window as a model: its controls by name, its focus, and its life from loading to unloading.
//
// The order of events is that of the old windows. Showing loads first (Form_Load), then lays out
// (Form_Resize), then activates (Form_Activate). Unloading asks Form_Unload, which may refuse.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"

namespace qel {

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

class Form;

// The forms of one running program; must outlive them.
struct Screen {
  std::vector<Form*> LoadedForms;  // in the order of their loading
  Form* ActiveForm = nullptr;      // the one in front; nullptr where none is
  Form* LastAtWork = nullptr;      // the last one in front that does not stand aside
  // Called for each form that is about to be loaded, so that a face can show it and tell it the sizes and
  // texts of its design. Forms without a face live as models.
  std::function<void(Form&)> AttachFace;

  // The loaded form of a name, or nullptr.
  Form* LoadedForm(std::string_view name) const;
};

class Form {
 public:
  Form(std::string name, qel::Screen& screen);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name; }
  qel::Screen& Screen;

  Property<std::string> Caption{Shown()};
  Property<int> Left{Shown()}, Top{Shown()};
  Property<int> Width{Resized()}, Height{Resized()};  // twips
  Property<qel::WindowState> WindowState{Resized()};
  int HelpContextID = 0;
  // Stands beside the program's work, as its help does: coming back from it to the window that was left for
  // it is no coming to the front.
  bool StandsAside = false;

  bool IsLoaded() const { return loaded; }
  bool WasUnloaded() const { return unloaded; }
  bool Visible() const { return visible; }

  void Load();
  void Show();
  // Shows the form and returns when it has been hidden or unloaded.
  void ShowModal();
  bool IsModal() const { return modal; }
  void Hide();
  // Asks Form_Unload. A form that refuses stays as it is; answers whether it is gone.
  bool Unload();
  // Unloads the form because the program ends, which Form_Unload can see by EndIsCertain; what it answers
  // does not matter. It is asked once, even if the end comes up anew while it works.
  void UnloadAtTheEnd();
  // The form came to the front. Coming back to it from a message box or from another program is no coming
  // to the front.
  void Activate();

  // The user presses a key with the form in front: the form is told, then the control that has the focus. F1
  // that neither takes asks for the form's help.
  void UserKey(KeyPress& press);
  Event<KeyPress&> KeyDown;
  // The user moves the mouse over what is no control.
  Event<> MouseMove;

  // The control of a name, or of a name and a place in its array; nullptr where there is none.
  Control* Find(std::string_view controlName, int index = Control::NoIndex) const;
  // In the order in which they joined, which is the order of the tab key.
  const std::vector<Control*>& Controls() const { return controls; }

  Control* ActiveControl() const { return active; }
  // Leaves the active control, whose LostFocus may take the focus back, and enters `control`.
  void MoveFocusTo(Control& control);
  // Leaves the active control before it is known where the focus goes: what is checked only then may turn
  // others on or off. False where the focus is taken back.
  bool LeaveFocus();
  // As the tab key does: leaves the active control and enters the next one that can have the focus then.
  void MoveFocusOn(bool backward = false);

  std::function<void()> ViewChanged;

  // What a face keeps of the form. It goes when the form is unloaded, or with the form.
  std::shared_ptr<void> Face;

 protected:
  virtual void Form_Load() {}
  virtual void Form_Resize() {}
  virtual void Form_Activate() {}
  // False refuses, but for the end of the program.
  virtual bool Form_Unload() { return true; }
  bool EndIsCertain() const { return endIsCertain; }

 private:
  friend class Control;
  void Join(Control& control) { controls.push_back(&control); }
  void Exit(Control* left);
  void Leave(Control& control);
  void LeaveFront();
  void Vanish();
  void ShowChange() const {
    if (ViewChanged) ViewChanged();
  }
  std::function<void()> Shown() {
    return [this] { ShowChange(); };
  }
  std::function<void()> Resized() {
    return [this] {
      ShowChange();
      if (loaded) Form_Resize();
    };
  }

  std::string name;
  std::vector<Control*> controls;
  Control* active = nullptr;
  Control* entered = nullptr;  // the last control that was told of the focus
  bool loaded = false;
  bool unloaded = false;
  bool visible = false;
  bool modal = false;
  bool endIsCertain = false;
};

// The one window of a class. It is made of its owner when it is first asked for, and anew after it was
// unloaded. An unloaded window stays in memory until its successor is unloaded too, since one of its own
// handlers may still be running.
template <class Window, class Owner>
class TheForm {
 public:
  explicit TheForm(Owner& owner) : owner(owner) {}

  Window& operator*() {
    if (!window || window->WasUnloaded()) {
      retired = std::move(window);
      window = std::make_unique<Window>(owner);
    }
    return static_cast<Window&>(*window);
  }
  Window* operator->() { return &**this; }

  // Whether the window is loaded; does not make it.
  bool IsLoaded() const { return window && window->IsLoaded(); }

 private:
  Owner& owner;
  std::unique_ptr<Form> window, retired;
};

}  // namespace qel
