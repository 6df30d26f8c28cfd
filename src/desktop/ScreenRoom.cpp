#include "desktop/ScreenRoom.h"

#include <QApplication>
#include <QBoxLayout>
#include <QLayout>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <memory>

namespace qel {

namespace {

constexpr int PlacementTime = 1000;  // milliseconds

// Before a window has been framed, a guess has to do: a title in the usual letters.
QMargins FrameOf(const QWidget& window) {
  const QWindow* handle = window.windowHandle();
  if (handle && !handle->frameMargins().isNull()) return handle->frameMargins();
  if (window.windowFlags() & Qt::FramelessWindowHint || window.windowType() == Qt::SplashScreen) return {};
  return {0, window.fontMetrics().height() + 10, 0, 0};
}

// Before they are polished, letters and edges have other sizes; and while a window is hidden, its layouts do
// not hear of what has changed deep inside them.
void MeasureAnew(QWidget& widget) {
  widget.ensurePolished();
  for (QObject* child : widget.children())
    if (auto* inside = qobject_cast<QWidget*>(child); inside && !inside->isWindow()) MeasureAnew(*inside);
  if (!widget.layout()) return;
  widget.layout()->invalidate();
  widget.layout()->activate();
}

// The least that the content can be shown in, its texts broken at that width.
QSize LeastSize(const QWidget& window, int width) {
  QSize least = window.minimumSizeHint();
  const QLayout* layout = window.layout();
  if (layout && layout->hasHeightForWidth())
    least.setHeight(
        std::max(least.height(), layout->totalMinimumHeightForWidth(std::max(width, least.width()))));
  return least;
}

QScrollArea* ScrollerOf(QWidget* content) {
  // Neither is a control, and both say so.
  content->setObjectName("staticContent");
  auto* const area = new QScrollArea;
  area->setObjectName("staticScroller");
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(content);
  QObject::connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* entered) {
    if (entered && area->isAncestorOf(entered)) area->ensureWidgetVisible(entered);
  });
  return area;
}

bool IsRowWithin(QLayoutItem& item, int width) {
  return qobject_cast<QHBoxLayout*>(item.layout()) && item.minimumSize().width() <= width;
}

// Takes all but the row of buttons at the foot of a window out of its layout.
QWidget* TakeContent(QVBoxLayout& layout, int width) {
  auto* const content = new QWidget;
  auto* const inside = new QVBoxLayout(content);
  inside->setSpacing(layout.spacing());
  inside->setContentsMargins(0, 0, 0, 0);
  const QMargins margins = layout.contentsMargins();
  const int inner = width - margins.left() - margins.right();
  const int kept = layout.count() > 1 && IsRowWithin(*layout.itemAt(layout.count() - 1), inner) ? 1 : 0;
  while (layout.count() > kept) {
    const int stretch = layout.stretch(0);
    std::unique_ptr<QLayoutItem> item(layout.takeAt(0));
    if (QWidget* const widget = item->widget())
      inside->addWidget(widget, stretch, item->alignment());
    else if (item->layout())
      inside->addLayout(item.release()->layout(), stretch);
    else
      inside->addItem(item.release());
  }
  return content;
}

bool MakeScrollable(QWidget& window, int width) {
  if (auto* const main = qobject_cast<QMainWindow*>(&window)) {
    QWidget* const content = main->takeCentralWidget();
    if (!content) return false;
    main->setCentralWidget(ScrollerOf(content));
    return true;
  }
  if (!window.layout()) return false;
  window.layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
  window.setMinimumSize(0, 0);
  window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  if (auto* const column = qobject_cast<QVBoxLayout*>(window.layout())) {
    column->insertWidget(0, ScrollerOf(TakeContent(*column, width)), 1);
    return true;
  }
  auto* const content = new QWidget;
  content->setLayout(window.layout());
  auto* const around = new QVBoxLayout(&window);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(ScrollerOf(content));
  return true;
}

QRect MovedInto(QRect place, const QRect& room) {
  place.setSize(place.size().boundedTo(room.size()));
  place.moveTo(std::clamp(place.x(), room.left(), room.right() + 1 - place.width()),
               std::clamp(place.y(), room.top(), room.bottom() + 1 - place.height()));
  return place;
}

bool FillsItsScreen(const QWidget& window) { return window.isMaximized() || window.isFullScreen(); }

// Keeps a dialogue in the middle of its owner for as long as this may still be on its way to its place.
class Follower : public QObject {
 public:
  Follower(QWidget& dialogue, QWidget& owner) : QObject(&dialogue), dialogue(dialogue), owner(&owner) {
    owner.installEventFilter(this);
    QTimer::singleShot(PlacementTime, this, [this] { deleteLater(); });
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
      QTimer::singleShot(0, this, [this] { Centre(); });
    return false;
  }

 private:
  void Centre() {
    if (!owner || !dialogue.isVisible()) return;
    QRect place = dialogue.frameGeometry();
    place.moveCenter(owner->frameGeometry().center());
    dialogue.move(MovedInto(place, dialogue.screen()->availableGeometry()).topLeft());
  }

  QWidget& dialogue;
  QPointer<QWidget> owner;
};

}  // namespace

bool FitInto(QWidget& window, const QRect& screen) {
  if (FillsItsScreen(window)) return false;
  MeasureAnew(window);
  const QMargins frame = FrameOf(window);
  const QSize room = screen.size().shrunkBy(frame);
  if (window.minimumSize().boundedTo(room) != window.minimumSize()) window.setMinimumSize(0, 0);
  const QSize least = LeastSize(window, room.width());
  const bool scrolls = (least.width() > room.width() || least.height() > room.height()) &&
                       MakeScrollable(window, room.width());
  const bool sized = window.testAttribute(Qt::WA_Resized);
  QSize wanted = (sized ? window.size() : window.sizeHint()).expandedTo(least);
  if (scrolls) wanted += QSize(1, 1) * window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const QSize size = wanted.boundedTo(room);
  // The toolkit knows the size of a window that fits best.
  if (scrolls || size != wanted) window.resize(size);
  if (window.testAttribute(Qt::WA_Moved))
    window.move(MovedInto({window.pos(), size.grownBy(frame)}, screen).topLeft());
  return scrolls;
}

void BringOntoScreen(QWidget& window) {
  if (!window.isVisible() || FillsItsScreen(window) || window.isMinimized()) return;
  const QRect room = window.screen()->availableGeometry();
  const QRect frame = window.frameGeometry();
  if (room.contains(frame)) return;
  const QRect wanted = MovedInto(frame, room);
  if (wanted.size() != frame.size()) window.resize(window.size() - (frame.size() - wanted.size()));
  window.move(wanted.topLeft());
}

void FollowPlacement(QWidget& dialogue, QWidget& owner) {
  if (owner.windowHandle() && owner.windowHandle()->isExposed()) return;
  new Follower(dialogue, owner);
}

}  // namespace qel
