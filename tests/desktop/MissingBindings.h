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
    const auto actions = bar.actions();
    tools.insert(actions.begin(), actions.end());
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
