// The tie between one control's model and its widget. What the user does goes to the model through Tell; what
// changes in the model comes back through Push. The model decides: after each event it is shown anew, so that
// a widget that ran ahead of a refusal falls back.
#pragma once

#include <QFont>
#include <QObject>
#include <QWidget>
#include <memory>

#include "controls/Control.h"
#include "desktop/FormFace.h"

namespace qel {

class ControlFace : public QObject {
 public:
  // `widget` may be null for what has none, as a timer.
  ControlFace(FormFace& form, Control& control, QWidget* widget);

  Control& Bound() const { return control; }
  QWidget* Widget() const { return widget; }

  // Takes from the design what the model leaves open, then follows the model.
  virtual void Attach();
  // Forgets the model, which may go then.
  virtual void Detach();
  // Shows the model as it is.
  void Refresh();

  // Sees an event of the widget or of a widget inside it first; true keeps it from going further.
  virtual bool Filter(QWidget& watched, QEvent& event);

 protected:
  virtual void Pull();
  virtual void Push();

  // Runs what the user's act means to the model. Nothing the face itself changes is such an act.
  template <typename Act>
  void Tell(Act act) {
    if (form.IsPushing()) return;
    form.Tell(act);
    Refresh();
  }
  FormFace& form;

 private:
  void PullPlace();
  void PushPlace();
  void PushToolTip();
  void ShowReason();
  void PushColours();

  Control& control;
  QWidget* widget;
  QFont designFont;
  Font shownFont;
  bool showsReason = false;
  SystemColour shownFore = SystemColour::Default, shownBack = SystemColour::Default;
};

// The face of what is clicked though it is no button: labels, pictures, frames.
class ClickableFace : public ControlFace {
 public:
  using ControlFace::ControlFace;
  bool Filter(QWidget& watched, QEvent& event) override;

 private:
  bool pressed = false;
};

// The faces by kind of control; null for a control of another kind, or where the design has no widget for it.
std::unique_ptr<ControlFace> FaceOfLabel(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfTextField(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfTextArea(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfDocument(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfButton(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfBar(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfList(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfListView(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfDrawings(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfPicker(FormFace& form, Control& model);
std::unique_ptr<ControlFace> FaceOfTimetable(FormFace& form, Control& model);

// A face that ties one kind of control to one kind of widget, action or menu.
template <class Face, class Model, class Shown>
std::unique_ptr<ControlFace> FaceOf(FormFace& form, Control& control) {
  auto* model = dynamic_cast<Model*>(&control);
  auto* shown = model ? dynamic_cast<Shown*>(form.ObjectOf(control)) : nullptr;
  return shown ? std::make_unique<Face>(form, *model, *shown) : nullptr;
}

}  // namespace qel
