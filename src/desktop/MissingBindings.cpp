#include "desktop/MissingBindings.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFrame>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollArea>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <algorithm>
#include <set>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "desktop/ControlFace.h"
#include "desktop/FormFace.h"
#include "desktop/PictureWidget.h"
#include "desktop/QtValues.h"
#include "desktop/UpDownButton.h"

namespace qel {

namespace {

std::string NameOf(const Control& control) {
  return control.Name() + (control.Index() == Control::NoIndex ? "" : "_" + std::to_string(control.Index()));
}

std::string NameOf(const QObject& object) { return FromQt(object.objectName()); }

// Labels, lines and frames that only decorate say so in their names.
bool IsDecoration(const QWidget& widget) {
  for (const char* beginning : {"label", "line", "spacer", "static"})
    if (widget.objectName().startsWith(QLatin1String(beginning))) return true;
  return false;
}

template <class... Kinds>
bool IsOneOf(const QWidget& widget) {
  return (dynamic_cast<const Kinds*>(&widget) || ...);
}

bool NeedsControl(const QWidget& widget) {
  if (IsOneOf<QMenu, QMenuBar>(widget)) return false;
  if (IsOneOf<QAbstractButton, QLineEdit, QPlainTextEdit, QComboBox, QAbstractItemView, QCalendarWidget,
              QProgressBar, QStatusBar, QTabBar, QTabWidget, QTextBrowser, QToolBar, PictureWidget,
              UpDownButton>(widget))
    return true;
  return widget.inherits("QFrame") && !IsDecoration(widget);  // QLabel is a QFrame
}

class Faults {
 public:
  explicit Faults(const FormFace& face) : face(face) {}

  std::vector<std::string> Find(const Form& form) {
    for (const Control* control : form.Controls()) CheckControl(*control);
    CheckChildren(face.Window());
    CheckMenus(face.Window());
    if (const auto* bar = face.Window().findChild<QMenuBar*>()) {
      CheckMenus(*bar);
      CheckActions(*bar);
    }
    return found;
  }

 private:
  const ControlFace* FaceOfControl(const Control& control) const {
    for (const auto& one : face.ControlFaces())
      if (&one->Bound() == &control) return one.get();
    return nullptr;
  }

  void CheckControl(const Control& control) {
    names.insert(NameOf(control));
    if (!FaceOfControl(control)) return found.push_back("control without widget: " + NameOf(control));
    const auto* toolbar = dynamic_cast<const Toolbar*>(&control);
    if (toolbar) CheckToolbar(const_cast<Toolbar&>(*toolbar));
  }

  void CheckToolbar(Toolbar& model) {
    const auto actions = static_cast<QToolBar*>(face.ObjectOf(model))->actions();
    const auto count = static_cast<qsizetype>(model.Buttons().size());
    for (qsizetype i = 0; i < std::max(count, actions.size()); ++i) {
      const std::string key = i < count ? model.Buttons()[static_cast<std::size_t>(i)].Key : "nothing";
      const std::string text = i >= actions.size()         ? "nothing"
                               : actions[i]->isSeparator() ? ""
                                                           : FromQt(actions[i]->text());
      if (key != text)
        found.push_back("tool button " + std::to_string(i + 1) + " of " + model.Name() + ": \"" + text +
                        "\" for \"" + key + "\"");
    }
  }

  // The parts of a bound or reported widget are its own affair, but a frame holds widgets of the design.
  void CheckChildren(const QWidget& parent) {
    for (const QObject* child : parent.children()) {
      const auto* widget = qobject_cast<const QWidget*>(child);
      if (!widget || NameOf(*widget).starts_with("qt_")) continue;
      // Its viewport bears a name of the toolkit's own.
      if (const auto* area = qobject_cast<const QScrollArea*>(widget)) {
        CheckChildren(*area->widget());
        continue;
      }
      const bool needs = NeedsControl(*widget);
      if (needs && !names.contains(NameOf(*widget)))
        found.push_back("widget without control: " + NameOf(*widget));
      if (!needs || IsHolder(*widget)) CheckChildren(*widget);
    }
  }

  static bool IsHolder(const QWidget& widget) {
    return IsOneOf<QTabWidget, QStatusBar>(widget) ||
           (widget.inherits("QFrame") && !widget.inherits("QAbstractScrollArea") &&
            !widget.inherits("QLabel"));
  }

  void CheckMenus(const QWidget& parent) {
    for (const QMenu* menu : parent.findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
      if (NameOf(*menu).empty() || NameOf(*menu).starts_with("qt_")) continue;  // the toolkit's own
      if (!names.contains(NameOf(*menu))) found.push_back("menu without control: " + NameOf(*menu));
      CheckActions(*menu);
      CheckMenus(*menu);
    }
  }

  void CheckActions(const QWidget& holder) {
    for (const QAction* action : holder.actions())
      if (!action->menu() && !action->isSeparator() && !names.contains(NameOf(*action)))
        found.push_back("action without control: " + NameOf(*action));
  }

  const FormFace& face;
  std::set<std::string> names;
  std::vector<std::string> found;
};

}  // namespace

std::vector<std::string> MissingBindings(const Form& form) {
  const FormFace* face = FaceOf(form);
  return face ? Faults(*face).Find(form) : std::vector<std::string>{"form without window: " + form.Name()};
}

}  // namespace qel
