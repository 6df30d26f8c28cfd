#include "desktop/EventLoop.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPointer>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "core/ErrorHandler.h"
#include "platform/Host.h"
#include "settings/StoredValues.h"
#include "values/Meanwhile.h"

namespace qel {

namespace {

// Keeps the user's input from the program while `isOn`. The release of a button that was pressed before comes
// when the filter goes; without it the pressed widget, and the toolkit's hold on the mouse, would stay down.
class InputFilter : public QObject {
 public:
  explicit InputFilter(const bool& isOn) : isOn(isOn) {}
  ~InputFilter() override {
    for (auto& [receiver, release] : releases)
      if (receiver) QCoreApplication::postEvent(receiver, release.release());
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonRelease:
        if (isOn) releases.emplace_back(watched, event->clone());
        return isOn;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseMove:
      case QEvent::Wheel:
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::Shortcut:
      case QEvent::ShortcutOverride:
      case QEvent::ContextMenu:
      case QEvent::TabletPress:
      case QEvent::TouchBegin:
        return isOn;
      default:
        return false;
    }
  }

 private:
  const bool& isOn;
  std::vector<std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>> releases;
};

void RunToItsEnd(const std::function<void()>& event) {
  try {
    event();
  } catch (const RunTimeError& error) {
    RepeatAfter(error);  // an event happens once, whatever the answer
  } catch (const std::bad_alloc&) {
    RepeatAfter(RunTimeError(OutOfMemory));
  }
}

// Dialogues that the toolkit runs in loops of its own would outlive the program.
void CloseDialogues() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* dialogue = qobject_cast<QDialog*>(window); dialogue && dialogue->isVisible())
      dialogue->reject();
}

}  // namespace

void EventLoop::Dispatch(const std::function<void()>& event) noexcept {
  if (ended) return;
  ++depth;
  try {
    RunToItsEnd(event);
    if (depth == 1) {
      SaveRegistry(windows->session.store);
      TellSetAside(windows->session.store);
    }
  } catch (const ProgramEnd&) {
    ended = true;
    CloseDialogues();
  }
  if (--depth == 0 && ended) SaveRegistry(windows->session.store);
}

void EventLoop::RunUntil(const std::function<bool()>& done) {
  const Meanwhile open(inputIsThrownAway, false);
  const bool hadForms = HasForms();
  while (!ended && !done()) {
    if (hadForms && !HasForms()) throw ProgramEnd();
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  if (ended) throw ProgramEnd();
}

void EventLoop::Run() {
  while (HasForms() && !ended) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    // Closed windows: the toolkit leaves them to a loop of its own, which never runs here.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

// Lets events happen in the middle of other work, which goes on only if the program does.
void EventLoop::GoOnAfter(const std::function<void()>& events) {
  const bool hadForms = HasForms();
  events();
  SaveRegistry(windows->session.store);
  if (ended || (hadForms && !HasForms())) throw ProgramEnd();
}

void EventLoop::Yield() {
  GoOnAfter([this] {
    const Meanwhile closed(inputIsThrownAway, true);
    InputFilter filter(inputIsThrownAway);
    qApp->installEventFilter(&filter);
    QCoreApplication::processEvents();
  });
}

void EventLoop::Paint() {
  GoOnAfter([] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); });
}

}  // namespace qel
