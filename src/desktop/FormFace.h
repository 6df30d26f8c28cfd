// The window of one form: it finds the widgets of the form's controls by their names, follows the form's
// caption, place, size and state, and brings it what the user does.
//
// A control's widget, action, menu or bar bears the control's name, a member of a control array the name with
// its place behind it: "mnuRecent_0".
#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "controls/Form.h"
#include "desktop/FormFocus.h"

namespace qel {

class ControlFace;
class EventLoop;

// How the window of a form is made.
struct WindowDesign {
  const char* formName;
  std::unique_ptr<QWidget> (*make)();
};

// For a class that the form compiler made of a .ui file, in a window of class Window.
template <class Window, class Ui, Qt::WindowType Flags = Qt::Window>
std::unique_ptr<QWidget> MakeWindow() {
  auto window = std::make_unique<Window>(nullptr, Flags);
  Ui().setupUi(window.get());
  return window;
}

class FormFace : public QObject {
 public:
  FormFace(Form& form, std::unique_ptr<QWidget> window, EventLoop& loop);
  ~FormFace() override;

  QWidget& Window() const { return *window; }
  const std::vector<std::unique_ptr<ControlFace>>& ControlFaces() const { return faces; }
  // What the design calls by the control's name; null where there is no such thing.
  QObject* ObjectOf(const Control& control) const;
  // The control that a widget belongs to, itself or one around it; null where there is none.
  Control* ControlOf(const QWidget* inside) const;
  // Whether a layout, not the model, says where the widget is.
  bool IsLaidOut(const QWidget& widget) const;

  // Runs what an event means to the model, unless the form has gone.
  void Tell(const std::function<void()>& act);
  // Whether that is under way.
  bool IsTelling() const { return telling > 0; }
  // Leaves the model for good: hides the window, which is deleted once nothing of it is under way.
  void Release();
  bool IsReleased() const { return !form; }
  Form* Bound() const { return form; }  // null once released
  FormFocus& Focus() { return focus; }

  // While one lives, what widgets report is our own doing.
  class Pushing {
   public:
    explicit Pushing(FormFace& face) : depth(face.pushing) { ++depth; }
    ~Pushing() { --depth; }
    Pushing(const Pushing&) = delete;
    Pushing& operator=(const Pushing&) = delete;

   private:
    int& depth;
  };
  bool IsPushing() const { return pushing > 0; }

 private:
  void Attach();
  void WatchWidgets();
  void Pull();
  void Push();
  void PushGeometry();
  void PushVisible();
  void ComeToTheFront();
  void PullGeometry();
  void TakeWindowState();
  // The user's side; each answers whether the event goes no further.
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool FilterWindow(QEvent& event);
  bool IsBehindAModalWindow() const;
  bool FilterWidget(QWidget& widget, QEvent& event);
  void TakeMouseMove(QWidget& widget, const QPoint& at);

  Form* form;  // null once released
  EventLoop& loop;
  std::unique_ptr<QWidget> window;
  std::vector<std::unique_ptr<ControlFace>> faces;
  int telling = 0;  // depth of Tell
  int pushing = 0;
  bool isInFront = false;  // was the form in front when it was last shown
  FormFocus focus{*this};
  QPoint shownPlace;  // pixels, as last pushed or pulled
  QSize shownSize;
  WindowState shownState = WindowState::Normal;
  bool pullingGeometry = false;
};

// From now on each form that is loaded there gets its window from `designs` and tells `loop` of its events; a
// form that is not in it stays a model.
void AttachFaces(Screen& screen, std::vector<WindowDesign> designs, EventLoop& loop);

// The face of a loaded form; null where it has none.
FormFace* FaceOf(const Form& form);

// Takes the windows off all forms that are still loaded there, as the end of the application asks for.
void ReleaseFaces(const Screen& screen);

}  // namespace qel
