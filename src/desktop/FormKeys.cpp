#include "desktop/FormKeys.h"

#include <QAbstractButton>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVariant>

#include "desktop/ControlFace.h"
#include "desktop/FormFace.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

void AddKey(FormFace& face, const QKeySequence& keys, Control& model, bool clicks) {
  auto* const shortcut = new QShortcut(keys, &face.Window());
  QObject::connect(shortcut, &QShortcut::activated, &face, [&face, &model, clicks] {
    face.Tell([&model, clicks] { clicks ? model.UserClick() : model.SetFocus(); });
  });
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

bool LeavesByTab(const QWidget* focused, const QKeyEvent& event) {
  const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
  const auto* const area = qobject_cast<const QPlainTextEdit*>(focused);
  const bool writesIt = area && !area->tabChangesFocus();
  return isTab && !writesIt && !event.modifiers().testFlag(Qt::ControlModifier);
}

// Enter clicks the button that has the focus, or the window's default button, in every kind of window; Escape
// clicks the button whose property "escape" is set, and never closes a window by itself.
bool TakeEnterOrEscape(const FormFace& face, Key key) {
  QWidget& window = face.Window();
  if (key == Key::Escape) {
    for (auto* button : window.findChildren<QPushButton*>())
      if (button->property("escape").toBool()) button->click();
    return face.IsReleased() || qobject_cast<QDialog*>(&window);
  }
  QWidget* const focused = window.focusWidget();
  if (key != Key::Enter || TakesEnter(focused)) return false;
  auto* button = qobject_cast<QPushButton*>(focused);
  if (!button)
    for (auto* other : window.findChildren<QPushButton*>())
      if (other->isDefault()) button = other;
  if (!button) return false;
  button->click();
  return true;
}

}  // namespace

void AddKeys(FormFace& face) {
  for (const auto& one : face.ControlFaces()) {
    const QWidget* const widget = one->Widget();
    if (!widget) continue;
    const auto* const button = qobject_cast<const QAbstractButton*>(widget);
    if (const QString keys = widget->property("keys").toString(); !keys.isEmpty())
      AddKey(face, QKeySequence(keys), one->Bound(), button != nullptr);
    const QString key = widget->property("accessKey").toString();
    if (key.isEmpty() || button || qobject_cast<const QLabel*>(widget)) continue;
    const auto letter = static_cast<Qt::Key>(key.front().toUpper().unicode());
    AddKey(face, QKeySequence(Qt::ALT | letter), one->Bound(), false);
  }
}

bool TakeKey(FormFace& face, const QWidget& widget, const QKeyEvent& event) {
  // The event comes again to each widget around the one that left it alone.
  const QWidget* const focused = face.Window().focusWidget();
  if (&widget != (focused ? focused : &face.Window())) return false;
  KeyPress press = FromQt(event);
  face.Tell([&model = *face.Bound(), &press] { model.UserKey(press); });
  if (face.IsReleased() || press.Handled || TakeEnterOrEscape(face, press.key) || IsVacantAccessKey(event))
    return true;
  return LeavesByTab(face.Window().focusWidget(), event) && face.Focus().TakeTab();
}

}  // namespace qel
