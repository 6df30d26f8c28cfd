#include "desktop/ModalWindows.h"

#include <QApplication>
#include <QWindow>

#include "desktop/ScreenRoom.h"

namespace qel {

void GiveOwner(QWidget& window) {
  QWidget* owner = QApplication::activeModalWidget();
  // The user may be in another program just now.
  if (!owner) owner = QApplication::activeWindow();
  for (const QWindow* shown : QApplication::topLevelWindows())  // in the order of their coming
    if (!owner && shown->isVisible()) owner = QWidget::find(shown->winId());
  window.winId();  // makes the handle
  if (!owner || owner == &window) return;
  window.windowHandle()->setTransientParent(owner->windowHandle());
  FollowPlacement(window, *owner);
}

void MakeModal(QWidget& window) {
  window.setWindowModality(Qt::ApplicationModal);
  GiveOwner(window);
}

bool IsKeptFrom(const QWidget& window) {
  const QWidget* modal = QApplication::activeModalWidget();
  return modal && modal != &window && window.windowHandle() &&
         !modal->windowHandle()->isAncestorOf(window.windowHandle(), QWindow::IncludeTransients);
}

}  // namespace qel
