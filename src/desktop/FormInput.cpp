// The user's side of a window: focus, keys, mouse, closing.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <QVariant>

#include "desktop/ControlFace.h"
#include "desktop/FormFace.h"
#include "desktop/QtValues.h"
#include "ui/frmHelp.h"

namespace qel {

namespace {

// Focus that comes and goes with the window, a menu or a list that drops down moves nothing inside it.
bool MovesInsideTheWindow(Qt::FocusReason reason) {
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

// A wheel that only passes over a list or a strip of tabs must not choose there.
bool ChoosesByWheel(const QWidget& widget) {
  return qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QTabBar*>(&widget);
}

// Text areas break the line, pages follow the link that was reached by the tab key, calendars pick the day.
bool TakesEnter(const QWidget* widget) {
  const auto isIn = [widget](const char* kind) {
    for (const QWidget* around = widget; around; around = around->parentWidget())
      if (around->inherits(kind)) return true;
    return false;
  };
  return isIn("QPlainTextEdit") || isIn("QTextBrowser") || isIn("QCalendarWidget");
}

// An access key that no control of the window has. The toolkit would write its letter into the text.
bool IsVacantAccessKey(const QKeyEvent& event) {
  const QString text = event.text();
  return event.modifiers().testFlag(Qt::AltModifier) && !text.isEmpty() && text.front().isPrint();
}

}  // namespace

bool FormFace::eventFilter(QObject* watched, QEvent* event) {
  if (!form || !watched->isWidgetType()) return false;
  auto& widget = static_cast<QWidget&>(*watched);
  if (&widget == window.get() && FilterWindow(*event)) return true;
  return form && FilterWidget(widget, *event);
}

bool FormFace::FilterWindow(QEvent& event) {
  switch (event.type()) {
    case QEvent::Close:
      Tell([this] { form->Unload(); });
      event.ignore();  // unloading hides the window; a form that refuses keeps it
      return true;
    case QEvent::WindowActivate:
      if (!IsBehindAModalWindow()) Tell([this] { form->Activate(); });
      return false;
    case QEvent::Resize:
    case QEvent::Move:
      PullGeometry();
      return false;
    case QEvent::WindowStateChange:
      // The window's new size comes by an event of its own, and Form_Resize wants to see it.
      if (pushing == 0) QTimer::singleShot(0, this, [this] { TakeWindowState(); });
      return false;
    default:
      return false;
  }
}

// The news that it was activated may reach a window late, when it has already opened a modal one.
bool FormFace::IsBehindAModalWindow() const {
  const QWidget* modal = QApplication::activeModalWidget();
  return modal && modal != window.get();
}

bool FormFace::FilterWidget(QWidget& widget, QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (TakePress(widget)) return true;
      break;
    case QEvent::FocusIn:
      TakeFocus(widget, static_cast<QFocusEvent&>(event).reason());
      break;
    case QEvent::KeyPress:
      if (TakeKey(widget, static_cast<QKeyEvent&>(event))) return true;
      break;
    case QEvent::Wheel:
      if (ChoosesByWheel(widget) && !widget.hasFocus()) {
        event.ignore();  // so that what is around the widget can scroll
        return true;
      }
      break;
    case QEvent::MouseMove:
      TakeMouseMove(widget, static_cast<QMouseEvent&>(event).pos());
      break;
    default:
      break;
  }
  if (!form) return false;
  for (const auto& face : faces)
    if (face->Widget() && (face->Widget() == &widget || face->Widget()->isAncestorOf(&widget)))
      if (face->Filter(widget, event)) return true;
  return false;
}

// The model has a say in where the focus goes before the press does anything; a field with a bad text keeps
// both.
bool FormFace::TakePress(QWidget& widget) {
  Control* const pressed = ControlOf(&widget);
  if (!pressed || !pressed->ClickMovesFocus || !pressed->CanHaveFocus()) return false;
  const bool wasRefused = std::exchange(refusedFocus, nullptr) == pressed;
  if (!wasRefused) Tell([pressed] { pressed->SetFocus(); });
  if (!form) return true;
  if (form->ActiveControl() == pressed) return false;
  SettleFocusLater();
  return true;
}

void FormFace::TakeFocus(QWidget& widget, Qt::FocusReason reason) {
  Control* const entered = ControlOf(&widget);
  if (!MovesInsideTheWindow(reason) || !entered || entered == form->ActiveControl()) return;
  // The toolkit moves the focus off what we hide or disable; that may be passing.
  if (pushing > 0 || enteringFocus) return SettleFocusLater();
  if (reason == Qt::MouseFocusReason && !entered->ClickMovesFocus) return SettleFocusLater();
  enteringFocus = true;
  Tell([entered] { entered->SetFocus(); });
  enteringFocus = false;
  if (!form || form->ActiveControl() == entered) return;
  if (reason == Qt::MouseFocusReason) refusedFocus = entered;  // the press itself comes next
  SettleFocusLater();
}

void FormFace::SettleFocusLater() {
  QTimer::singleShot(0, this, [this] { SettleFocus(); });
}

// Not before a handler that is under way has run to its end: what it disabled, it may enable again.
void FormFace::SettleFocus() {
  if (!form) return;
  settlesLater = telling > 0;
  if (settlesLater) return;
  refusedFocus = nullptr;
  Control* const active = form->ActiveControl();
  if (active && active->CanHaveFocus()) return FollowFocus();
  if (Control* entered = ControlOf(window->focusWidget())) Tell([entered] { entered->SetFocus(); });
}

void FormFace::FollowFocus() {
  if (!form) return;
  Control* const active = form->ActiveControl();
  if (!active || !active->CanHaveFocus() || ControlOf(window->focusWidget()) == active) return;
  if (enteringFocus) return SettleFocusLater();
  for (const auto& face : faces)
    if (&face->Bound() == active && face->Widget()) face->Widget()->setFocus(Qt::OtherFocusReason);
}

bool FormFace::TakeKey(QWidget& widget, const QKeyEvent& event) {
  // The event comes again to each widget around the one that left it alone.
  const QWidget* const focused = window->focusWidget();
  if (&widget != (focused ? focused : window.get())) return false;
  KeyPress press = FromQt(event);
  Form& model = *form;
  Tell([&model, &press] {
    model.KeyDown(press);
    Control* const active = model.ActiveControl();
    if (!press.Handled && active) active->UserKey(press);
  });
  return !form || press.Handled || TakeHelpKey(press) || TakeEnterOrEscape(press) ||
         IsVacantAccessKey(event) || TakeTab(event);
}

// The toolkit looks for the next widget once the model has left the present one, which may turn others on.
bool FormFace::TakeTab(const QKeyEvent& event) {
  const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
  const auto* const area = qobject_cast<const QPlainTextEdit*>(window->focusWidget());
  const bool writesIt = area && !area->tabChangesFocus();
  if (!isTab || writesIt || event.modifiers().testFlag(Qt::ControlModifier)) return false;
  bool leaves = true;
  Tell([&model = *form, &leaves] { leaves = model.LeaveFocus(); });
  if (form) SettleFocusLater();
  return !form || !leaves;
}

bool FormFace::TakeHelpKey(const KeyPress& press) {
  if (press.key != Key::F1) return false;
  Tell([&model = *form] { ShowHelpOn(model); });
  return true;
}

// Enter clicks the button that has the focus, or the window's default button, in every kind of window; Escape
// clicks the button whose property "escape" is set, and never closes a window by itself.
bool FormFace::TakeEnterOrEscape(const KeyPress& press) {
  if (press.key == Key::Escape) {
    for (auto* button : window->findChildren<QPushButton*>())
      if (button->property("escape").toBool()) button->click();
    return !form || qobject_cast<QDialog*>(window.get());
  }
  QWidget* const focused = window->focusWidget();
  if (press.key != Key::Enter || TakesEnter(focused)) return false;
  auto* button = qobject_cast<QPushButton*>(focused);
  if (!button)
    for (auto* other : window->findChildren<QPushButton*>())
      if (other->isDefault()) button = other;
  if (!button) return false;
  button->click();
  return true;
}

void FormFace::TakeMouseMove(QWidget& widget, const QPoint& at) {
  if (widget.childAt(at)) return;  // it has been there already
  Control* const under = ControlOf(&widget);
  Form& model = *form;
  Tell([&model, under] {
    if (under)
      under->MouseMove();
    else
      model.MouseMove();
  });
}

}  // namespace qel
