// Holds the toolkit's focus in a window to the model's: the model decides where it goes, and is asked before
// a click or a tab does anything.
#pragma once

#include <Qt>

namespace qel {

class Control;
class FormFace;

class FormFocus {
 public:
  explicit FormFocus(FormFace& face) : face(face) {}

  // Moves the toolkit's focus to the active control.
  void Follow();

  // The user presses the mouse on a control; true where the press goes no further.
  bool TakePress(Control* pressed);
  // The toolkit has moved its focus to a control. Null for what is none.
  void TakeEntry(Control* entered, Qt::FocusReason reason);
  // The tab key: the model leaves its active control; true where that keeps the focus.
  bool TakeTab();
  // A handler has run to its end.
  void TakeEndOfHandler();

 private:
  // Brings the focuses together once the present event is over.
  void SettleLater();
  void Settle();

  FormFace& face;
  bool entering = false;
  bool settlesLater = false;         // once the handler under way has ended
  const Control* refused = nullptr;  // by the mouse press that is under way
};

}  // namespace qel
