#include "desktop/FormFocus.h"

#include <QTimer>
#include <utility>

#include "desktop/ControlFace.h"
#include "desktop/FormFace.h"

namespace qel {

namespace {

// Focus that comes and goes with the window, a menu or a list that drops down moves nothing inside it.
bool MovesInsideTheWindow(Qt::FocusReason reason) {
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

}  // namespace

// A field with a bad text keeps both the focus and the press.
bool FormFocus::TakePress(Control* pressed) {
  if (!pressed || !pressed->ClickMovesFocus || !pressed->CanHaveFocus()) return false;
  const bool wasRefused = std::exchange(refused, nullptr) == pressed;
  if (!wasRefused) face.Tell([pressed] { pressed->SetFocus(); });
  if (face.IsReleased()) return true;
  if (face.Bound()->ActiveControl() == pressed) return false;
  SettleLater();
  return true;
}

void FormFocus::TakeEntry(Control* entered, Qt::FocusReason reason) {
  if (!MovesInsideTheWindow(reason) || !entered || entered == face.Bound()->ActiveControl()) return;
  // The toolkit moves the focus off what we hide or disable; that may be passing.
  if (face.IsPushing() || entering) return SettleLater();
  if (reason == Qt::MouseFocusReason && !entered->ClickMovesFocus) return SettleLater();
  entering = true;
  face.Tell([entered] { entered->SetFocus(); });
  entering = false;
  if (face.IsReleased() || face.Bound()->ActiveControl() == entered) return;
  if (reason == Qt::MouseFocusReason) refused = entered;  // the press itself comes next
  SettleLater();
}

// The toolkit looks for the next widget once the model has left the present one, which may turn others on.
bool FormFocus::TakeTab() {
  bool leaves = true;
  face.Tell([&model = *face.Bound(), &leaves] { leaves = model.LeaveFocus(); });
  if (!face.IsReleased()) SettleLater();
  return face.IsReleased() || !leaves;
}

void FormFocus::TakeEndOfHandler() {
  if (std::exchange(settlesLater, false)) SettleLater();
}

void FormFocus::SettleLater() {
  QTimer::singleShot(0, &face, [this] { Settle(); });
}

// Not before a handler that is under way has run to its end: what it disabled, it may enable again.
void FormFocus::Settle() {
  if (face.IsReleased()) return;
  settlesLater = face.IsTelling();
  if (settlesLater) return;
  refused = nullptr;
  Control* const active = face.Bound()->ActiveControl();
  if (active && active->CanHaveFocus()) return Follow();
  if (Control* entered = face.ControlOf(face.Window().focusWidget()))
    face.Tell([entered] { entered->SetFocus(); });
}

void FormFocus::Follow() {
  if (face.IsReleased()) return;
  Control* const active = face.Bound()->ActiveControl();
  if (!active || !active->CanHaveFocus() || face.ControlOf(face.Window().focusWidget()) == active) return;
  if (entering) return SettleLater();
  for (const auto& one : face.ControlFaces())
    if (&one->Bound() == active && one->Widget()) one->Widget()->setFocus(Qt::OtherFocusReason);
}

}  // namespace qel
