#include "desktop/FormFace.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QScreen>
#include <QTabBar>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "desktop/ControlFace.h"
#include "desktop/EventLoop.h"
#include "desktop/FormKeys.h"
#include "desktop/ModalWindows.h"
#include "desktop/QtValues.h"
#include "desktop/ScreenRoom.h"

namespace qel {

namespace {

constexpr auto MakeFaceOfKind = {FaceOfLabel,    FaceOfTextField, FaceOfTextArea, FaceOfDocument,
                                 FaceOfButton,   FaceOfBar,       FaceOfList,     FaceOfListView,
                                 FaceOfDrawings, FaceOfPicker,    FaceOfTimetable};

constexpr int FramingTime = 200;  // milliseconds

// A wheel that only passes over a list or a strip of tabs must not choose there.
bool ChoosesByWheel(const QWidget& widget) {
  return qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QTabBar*>(&widget);
}

// A hidden window's layouts do not reach the layouts inside its widgets by themselves.
void LayOut(QWidget& widget) {
  if (QLayout* layout = widget.layout()) {
    layout->activate();
    QRect room = widget.contentsRect();
    if (const QWidget* menuBar = layout->menuBar(); menuBar && !menuBar->isHidden())
      room.setTop(room.top() + menuBar->sizeHint().height());
    layout->setGeometry(room);
  }
  for (QObject* child : widget.children())
    if (auto* inside = qobject_cast<QWidget*>(child); inside && !inside->isWindow()) LayOut(*inside);
}

}  // namespace

FormFace::FormFace(Form& form, std::unique_ptr<QWidget> window, EventLoop& loop)
    : form(&form), loop(loop), window(std::move(window)) {
  Attach();
}

FormFace::~FormFace() {
  form = nullptr;
  faces.clear();
  window.reset();
}

void FormFace::Attach() {
  LayOut(*window);
  Pull();
  for (Control* control : form->Controls()) {
    for (const auto make : MakeFaceOfKind)
      if (auto face = make(*this, *control)) {
        faces.push_back(std::move(face));
        break;
      }
  }
  for (const auto& face : faces) face->Attach();
  AddKeys(*this);
  form->ViewChanged = [this] { Push(); };
  window->setContextMenuPolicy(Qt::NoContextMenu);
  WatchWidgets();
}

void FormFace::WatchWidgets() {
  QList<QWidget*> widgets = window->findChildren<QWidget*>();
  widgets.push_back(window.get());
  for (QWidget* widget : widgets) {
    widget->installEventFilter(this);
    widget->setMouseTracking(true);
  }
}

QObject* FormFace::ObjectOf(const Control& control) const {
  QString name = ToQt(control.Name());
  if (control.Index() != Control::NoIndex) name += '_' + QString::number(control.Index());
  return window->findChild<QObject*>(name);
}

Control* FormFace::ControlOf(const QWidget* inside) const {
  for (const QWidget* widget = inside; widget && widget != window.get(); widget = widget->parentWidget())
    for (const auto& face : faces)
      if (face->Widget() == widget) return &face->Bound();
  return nullptr;
}

bool FormFace::IsLaidOut(const QWidget& widget) const {
  const QWidget* parent = widget.parentWidget();
  return !parent || parent->layout() || widget.isWindow();
}

void FormFace::Tell(const std::function<void()>& act) {
  if (!form) return;
  ++telling;
  loop.Dispatch(act);
  if (--telling > 0) return;
  if (!form) deleteLater();
  focus.TakeEndOfHandler();
}

void FormFace::Release() {
  if (!form) return;
  const std::vector<Control*> left = form->Controls();  // without those that have gone before their form
  for (const auto& face : faces)
    if (std::any_of(left.begin(), left.end(),
                    [&](const Control* control) { return control == &face->Bound(); }))
      face->Detach();
  form->ViewChanged = nullptr;
  form = nullptr;
  window->hide();
  if (telling == 0) deleteLater();
}

void FormFace::Pull() {
  if (form->Caption().empty()) form->Caption = FromQt(window->windowTitle());
  if (form->Width == 0) form->Width = Twips(window->width());
  if (form->Height == 0) form->Height = Twips(window->height());
  shownPlace = {Pixels(form->Left), Pixels(form->Top)};
  shownSize = window->size();
}

void FormFace::Push() {
  if (!form) return;
  const Pushing here(*this);
  if (const QString title = ToQt(form->Caption()); window->windowTitle() != title)
    window->setWindowTitle(title);
  PushGeometry();
  PushVisible();
}

void FormFace::PushGeometry() {
  if (pullingGeometry) return;
  const QPoint place(Pixels(form->Left), Pixels(form->Top));
  const QSize size(Pixels(form->Width), Pixels(form->Height));
  // A place that nobody has set is the window system's to choose.
  if (place != shownPlace) window->move(shownPlace = place);
  if (size != shownSize) {
    shownSize = size;
    if (!window->isMaximized() && !window->isMinimized()) window->resize(size);
    BringOntoScreen(*window);
  }
  // Only when the program changes it: the user's change may be on its way here.
  if (std::exchange(shownState, form->WindowState()) == form->WindowState()) return;
  Qt::WindowStates states = window->windowState();
  states.setFlag(Qt::WindowMaximized, shownState == WindowState::Maximized);
  states.setFlag(Qt::WindowMinimized, shownState == WindowState::Minimized);
  window->setWindowState(states);
}

// The model keeps the normal place and size of a window that is maximised or minimised.
void FormFace::PullGeometry() {
  if (pushing > 0 || !window->isVisible() || window->isMaximized() || window->isMinimized()) return;
  shownPlace = window->pos();
  shownSize = window->size();
  LayOut(*window);  // so that the form finds its controls in their new places
  pullingGeometry = true;
  Tell([&model = *form, place = shownPlace, size = shownSize] {
    if (Pixels(model.Left) != place.x()) model.Left = Twips(place.x());
    if (Pixels(model.Top) != place.y()) model.Top = Twips(place.y());
    if (Pixels(model.Width) != size.width()) model.Width = Twips(size.width());
    if (Pixels(model.Height) != size.height()) model.Height = Twips(size.height());
  });
  pullingGeometry = false;
  Push();  // what the form made of it
}

void FormFace::TakeWindowState() {
  if (!form || !window->isVisible()) return;
  const auto state = window->isMinimized()   ? WindowState::Minimized
                     : window->isMaximized() ? WindowState::Maximized
                                             : WindowState::Normal;
  shownState = state;
  Tell([this, state] { form->WindowState = state; });
}

void FormFace::PushVisible() {
  if (!form->Visible()) {
    window->hide();
    return;
  }
  if (window->isHidden()) {
    if (form->IsModal())
      MakeModal(*window);
    else if (qobject_cast<QDialog*>(window.get()))
      GiveOwner(*window);
    focus.Follow();
    if (FitInto(*window, window->screen()->availableGeometry())) WatchWidgets();
    window->show();
    // Only now the frame that the window system puts around it is known.
    QTimer::singleShot(FramingTime, this, [this] {
      if (form) BringOntoScreen(*window);
    });
  }
  ComeToTheFront();
}

// Once for each time that the program puts the form in front, so that a window never comes before what the
// user has put there since.
void FormFace::ComeToTheFront() {
  if (form->Screen.ActiveForm != form || std::exchange(isInFront, true)) return;
  for (Form* other : form->Screen.LoadedForms)
    if (FormFace* face = FaceOf(*other); face && face != this) face->isInFront = false;
  if (IsKeptFrom(*window)) {
    window->hide();
    GiveOwner(*window);
    window->show();
  }
  if (window->isActiveWindow()) return;
  window->raise();
  window->activateWindow();
}

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
      if (focus.TakePress(ControlOf(&widget))) return true;
      break;
    case QEvent::FocusIn:
      focus.TakeEntry(ControlOf(&widget), static_cast<QFocusEvent&>(event).reason());
      break;
    case QEvent::KeyPress:
      if (TakeKey(*this, widget, static_cast<QKeyEvent&>(event))) return true;
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

void AttachFaces(Screen& screen, std::vector<WindowDesign> designs, EventLoop& loop) {
  screen.AttachFace = [designs = std::move(designs), &loop](Form& form) {
    for (const WindowDesign& design : designs)
      if (form.Name() == design.formName)
        form.Face = std::shared_ptr<FormFace>(new FormFace(form, design.make(), loop),
                                              [](FormFace* face) { face->Release(); });
  };
}

FormFace* FaceOf(const Form& form) { return static_cast<FormFace*>(form.Face.get()); }

void ReleaseFaces(const Screen& screen) {
  for (Form* form : screen.LoadedForms) form->Face.reset();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace qel
