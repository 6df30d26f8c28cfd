// What a window's design and its form do not have in common. A design is whole when there is nothing.
#pragma once

#include <QAction>
#include <QToolBar>
#include <algorithm>
#include <set>
#include <string>
#include <typeinfo>
#include <vector>

#include "controls/Bars.h"
#include "desktop/ControlFace.h"
#include "desktop/QtValues.h"

namespace qel {

// Controls without a widget, tool buttons without an action, and widgets, menus and actions that belong to no
// control.
class MissingBindings {
 public:
  // Of a form that is loaded and has a face; one line a fault.
  static std::vector<std::string> Of(const Form& form) { return MissingBindings(*FaceOf(form), form).found; }

 private:
  MissingBindings(const FormFace& face, const Form& form) {
    for (Control* control : form.Controls()) {
      const QObject* const object = face.ObjectOf(*control);
      const bool isBound =
          std::ranges::any_of(face.ControlFaces(), [&](const auto& one) { return &one->Bound() == control; });
      if (!isBound) found.push_back("control without widget: " + control->Name());
      if (object) names.insert(FromQt(object->objectName()));
      if (auto* const bar = dynamic_cast<Toolbar*>(control); bar && isBound)
        CheckToolbar(*bar, *static_cast<const QToolBar*>(object));
    }
    for (const QWidget* widget : face.Window().findChildren<QWidget*>())
      if (!IsDecoration(*widget)) Check("widget", *widget);
    for (const QAction* action : face.Window().findChildren<QAction*>())
      if (!tools.contains(action) && !action->isSeparator()) Check("action", *action);
  }

  void CheckToolbar(Toolbar& model, const QToolBar& bar) {
    std::string keys, texts;
    for (const auto& button : model.Buttons()) keys += '|' + button.Key;
    for (const QAction* action : bar.actions()) {
      tools.insert(action);
      texts += '|' + (action->isSeparator() ? "" : FromQt(action->text()));
    }
    if (keys != texts) found.push_back(model.Name() + " has the tools " + texts + " for " + keys);
  }

  // What the toolkit makes for itself has no name, or one of its own kind.
  void Check(const std::string& kind, const QObject& object) {
    const std::string name = FromQt(object.objectName());
    if (!name.empty() && !name.starts_with("qt_") && !names.contains(name))
      found.push_back(kind + " without control: " + name);
  }

  // What only holds others, the arrows of a strip of tabs, and what says so in its name.
  static bool IsDecoration(const QWidget& widget) {
    if (typeid(widget) == typeid(QWidget) || widget.inherits("QGroupBox") || widget.inherits("QMenuBar"))
      return true;
    for (const char* beginning : {"label", "line", "spacer", "static"})
      if (widget.objectName().startsWith(beginning)) return true;
    return widget.parent()->inherits("QTabBar");
  }

  std::set<std::string> names;
  std::set<const QAction*> tools;
  std::vector<std::string> found;
};

}  // namespace qel
