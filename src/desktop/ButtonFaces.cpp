// What is clicked: buttons, checks, options, menu items, frames and pictures; and timers.

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTimer>
#include <QVariant>
#include <utility>

#include "controls/Buttons.h"
#include "desktop/ControlFace.h"
#include "desktop/PictureWidget.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

template <class Model, class Shown>
class ButtonFace : public ControlFace {
 public:
  ButtonFace(FormFace& form, Model& model, Shown& button)
      : ControlFace(form, model, &button), model(model), button(button) {
    connect(&button, &QAbstractButton::clicked, this, [this] { Tell([this] { this->model.UserClick(); }); });
  }

 protected:
  void Pull() override {
    ControlFace::Pull();
    if (model.Caption().empty()) model.Caption = FromQt(button.text());
    if (!model.ClickMovesFocus) button.setFocusPolicy(Qt::TabFocus);
  }
  void Push() override {
    ControlFace::Push();
    const QString text = WithAccessKey(ToQt(model.Caption()), button.property("accessKey").toString());
    if (button.text() != text) button.setText(text);
  }
  Model& model;
  Shown& button;
};

template <class Model, class Shown>
class CheckFace : public ButtonFace<Model, Shown> {
 public:
  using ButtonFace<Model, Shown>::ButtonFace;

 private:
  void Push() override {
    ButtonFace<Model, Shown>::Push();
    auto& button = this->button;
    if (button.isChecked() == this->model.Value()) return;
    const QSignalBlocker silent(button);
    // The model knows which options belong together; for the toolkit a group always has one that is set.
    const bool isExclusive = button.autoExclusive();
    button.setAutoExclusive(false);
    button.setChecked(this->model.Value);
    button.setAutoExclusive(isExclusive);
  }
};

// A menu item, or the title of a menu.
class MenuFace : public ControlFace {
 public:
  MenuFace(FormFace& form, MenuItem& model, QAction& action)
      : ControlFace(form, model, nullptr), model(model), action(action) {
    connect(&action, &QAction::triggered, this, [this] { Tell([this] { this->model.UserClick(); }); });
  }
  MenuFace(FormFace& form, MenuItem& model, QMenu& menu)
      : ControlFace(form, model, nullptr), model(model), action(*menu.menuAction()) {
    connect(&menu, &QMenu::aboutToShow, this, [this] { Tell([this] { this->model.UserClick(); }); });
  }

 private:
  void Pull() override {
    if (model.Caption().empty()) model.Caption = FromQt(action.text());
  }
  void Push() override {
    if (const QString text = ToQt(model.Caption()); action.text() != text) action.setText(text);
    // Without one the toolkit would show the caption again.
    if (!model.ToolTipText().empty()) action.setToolTip(PlainToolTip(ToQt(model.ToolTipText())));
    action.setVisible(model.Visible);
    action.setEnabled(model.Enabled);
    if (model.Checked) action.setCheckable(true);
    action.setChecked(model.Checked);
  }
  MenuItem& model;
  QAction& action;
};

class FrameFace : public ClickableFace {
 public:
  FrameFace(FormFace& form, Frame& model, QWidget& frame)
      : ClickableFace(form, model, &frame),
        model(model),
        box(qobject_cast<QGroupBox*>(&frame)),
        stack(qobject_cast<QStackedWidget*>(frame.parentWidget())) {}

 private:
  void Pull() override {
    ControlFace::Pull();
    if (box && model.Caption().empty()) model.Caption = FromQt(box->title());
  }
  void Push() override {
    if (stack) PushPage();
    if (stack && stack->currentWidget() != Widget()) return;
    ControlFace::Push();
    if (box) box->setTitle(ToQt(model.Caption()));
  }

  // A page of a stack comes to the front when it becomes visible, and gives way to the first that is visible
  // when it is hidden. The stack itself hides what is not in front.
  void PushPage() {
    if (std::exchange(wasVisible, model.Visible()) == model.Visible()) return;
    if (model.Visible) return stack->setCurrentWidget(Widget());
    if (stack->currentWidget() != Widget()) return;
    for (const auto& other : form.ControlFaces())
      if (other->Widget() && stack->indexOf(other->Widget()) >= 0 && other->Bound().Visible) {
        stack->setCurrentWidget(other->Widget());
        return other->Refresh();
      }
  }

  Frame& model;
  QGroupBox* box;
  QStackedWidget* stack;  // null for a frame that is no page of one
  bool wasVisible = true;
};

class PictureFace : public ClickableFace {
 public:
  PictureFace(FormFace& form, Picture& model, QWidget& picture)
      : ClickableFace(form, model, &picture), model(model), picture(dynamic_cast<PictureWidget*>(&picture)) {}

 private:
  void Push() override {
    ControlFace::Push();
    if (picture) picture->SetFrame(model.Frame);
  }
  Picture& model;
  PictureWidget* picture;
};

class TimerFace : public ControlFace {
 public:
  TimerFace(FormFace& form, Timer& model) : ControlFace(form, model, nullptr), model(model) {
    connect(&clock, &QTimer::timeout, this, [this] { Tick(); });
  }
  void Detach() override {
    clock.stop();
    ControlFace::Detach();
  }

 private:
  void Pull() override {}
  void Push() override {
    const bool runs = model.Enabled && model.Interval > 0;
    if (!runs) return clock.stop();
    if (!clock.isActive() || clock.interval() != model.Interval) clock.start(model.Interval);
  }
  // A tick whose handler waits for the user is not interrupted by the next.
  void Tick() {
    if (ticking) return;
    ticking = true;
    Tell([this] { model.Tick(); });
    ticking = false;
  }
  Timer& model;
  QTimer clock;
  bool ticking = false;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfButton(FormFace& form, Control& control) {
  if (auto* timer = dynamic_cast<Timer*>(&control)) return std::make_unique<TimerFace>(form, *timer);
  if (auto face = FaceOf<ButtonFace<Button, QPushButton>, Button, QPushButton>(form, control)) return face;
  if (auto face = FaceOf<CheckFace<CheckBox, QCheckBox>, CheckBox, QCheckBox>(form, control)) return face;
  if (auto face = FaceOf<CheckFace<OptionButton, QRadioButton>, OptionButton, QRadioButton>(form, control))
    return face;
  if (auto face = FaceOf<MenuFace, MenuItem, QAction>(form, control)) return face;
  if (auto face = FaceOf<MenuFace, MenuItem, QMenu>(form, control)) return face;
  if (auto face = FaceOf<FrameFace, Frame, QWidget>(form, control)) return face;
  return FaceOf<PictureFace, Picture, QWidget>(form, control);
}

}  // namespace qel
