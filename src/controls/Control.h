// What every control of a window has. Controls are models without a toolkit: a window's class owns them and
// holds its whole behaviour, a face shows them, and tests drive them directly.
//
// Places and sizes are in twips (1440 to the inch). Text is Windows-1252.
#pragma once

#include <functional>
#include <string>

#include "controls/Property.h"
#include "platform/Font.h"

namespace qel {

class Form;
class Control;

// Colours by what they mean on the user's screen.
enum class SystemColour { Default, WindowText, WindowBackground, MenuBackground, GreyText, Warning, Refused };

// Keys that handlers ask for by name; any other key comes as the character it types.
enum class Key { Other, Enter, Escape, Up, Down, Left, Right, PageUp, PageDown, Home, End, F1, F3, Delete };

struct KeyPress {
  Key key = Key::Other;
  char Character = 0;  // 0 for a key that types none
  bool Shift = false, Control = false, Alt = false;
  bool Handled = false;  // set by a handler that wants the key to do nothing more
};

// Where a control stands: on its form, or in a frame of it.
struct Surface {
  Surface(Form& form) : Owner(form) {}
  Surface(Control& frame);
  Form& Owner;
  Control* Frame = nullptr;
};

class Control {
 public:
  static constexpr int NoIndex = -1;

  // Joins the form under `name`. Form and frame must outlive the control; `index` is its place in a control
  // array.
  Control(Surface surface, std::string name, int index = NoIndex);
  Control(Surface surface, std::string name, Event<>::Handler click);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Name() const { return name; }
  int Index() const { return index; }
  Form& Parent() const { return form; }

  Property<bool> Visible{Shown(), true};
  Property<bool> Enabled{Shown(), true};
  Property<std::string> ToolTipText{Shown()};
  Property<int> Left{Shown()}, Top{Shown()}, Width{Shown()}, Height{Shown()};
  Property<SystemColour> BackColor{Shown()}, ForeColor{Shown()};
  Property<qel::Font> Font{Shown()};
  // Why it does not take what the user gave it; empty when it does. A face marks the control and shows the
  // reason in place of the tool tip.
  Property<std::string> Refusal{Shown()};
  // Whether a click brings the focus along. A field that keeps the focus keeps such clicks from happening;
  // Cancel buttons, and what helps to complete that very field, are to work all the same.
  bool ClickMovesFocus = true;

  Event<> Click, DblClick, GotFocus, LostFocus;
  Event<KeyPress&> KeyDown;
  Event<> MouseMove;

  // Gives the control the focus of its form, if it can have it.
  void SetFocus();
  bool HasFocus() const;
  bool CanHaveFocus() const { return TakesFocus() && Usable(); }
  // What stands in a frame is hidden and disabled with it.
  bool IsShown() const { return Visible && (!frame || frame->IsShown()); }
  bool Usable() const { return Visible && Enabled && (!frame || frame->Usable()); }

  // What the user does with the mouse and the keyboard; nothing happens to a control that is hidden or
  // disabled.
  void UserClick();
  void UserDblClick();
  void UserKey(KeyPress& press);

  // Called after every change that is to be seen. A face sets it when it shows the control.
  std::function<void()> ViewChanged;

 protected:
  virtual bool TakesFocus() const { return true; }
  // What a click, and gaining and losing the focus, do to the control itself, before its event.
  virtual void TakeClick() {}
  // A key that the window has left to the control.
  virtual void TakeKey(KeyPress&) {}
  virtual void TakeEntry() {}
  virtual void TakeExit() {}
  void ShowChange() const {
    if (ViewChanged) ViewChanged();
  }
  Property<bool>::Told Shown() {
    return [this] { ShowChange(); };
  }
  // Shows the change, then reacts to it.
  template <typename Reaction>
  std::function<void()> ShownThen(Reaction reaction) {
    return [this, reaction] {
      ShowChange();
      reaction();
    };
  }

 private:
  friend class Form;  // which shows that the focus has moved
  Form& form;
  Control* frame;  // nullptr for what stands on the form itself
  std::string name;
  int index;
};

}  // namespace qel
