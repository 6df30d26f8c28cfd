// Drawings: what is under the pointer or in hand is marked, and told in a tool tip.

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <utility>

#include "controls/DrawingView.h"
#include "desktop/ControlFace.h"
#include "desktop/DrawingArea.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

class DrawingFace : public ControlFace {
 public:
  DrawingFace(FormFace& form, DrawingView& model, DrawingArea& area)
      : ControlFace(form, model, &area), model(model), area(area) {}

  void Attach() override {
    area.Follow(&model);
    ControlFace::Attach();
  }
  void Detach() override {
    area.Follow(nullptr);
    ControlFace::Detach();
  }

  bool Filter(QWidget& watched, QEvent& event) override {
    if (&watched == area.viewport() && TakePointer(event)) return true;
    return ControlFace::Filter(watched, event);
  }

 private:
  bool TakePointer(QEvent& event) {
    switch (event.type()) {
      case QEvent::MouseMove: {
        // What scrolls below a pointer at rest is not pointed at.
        const auto& mouse = static_cast<QMouseEvent&>(event);
        const QPoint before = std::exchange(pointer, mouse.globalPosition().toPoint());
        if (pointer != before) Point(area.PlaceAt(mouse.pos()));
        return false;
      }
      case QEvent::Leave:  // a tool tip that comes up below the pointer makes it leave too
        if (!model.IsByKeys()) Point(DrawingView::NoPlace);
        return false;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease: {
        const auto& mouse = static_cast<QMouseEvent&>(event);
        if (mouse.button() != Qt::LeftButton) return false;
        const int place = area.PlaceAt(mouse.pos());
        const bool isPress = event.type() == QEvent::MouseButtonPress;
        const int began = std::exchange(pressed, isPress ? place : DrawingView::NoPlace);
        Point(place);
        if (!isPress && began == place) Tell([this] { model.UserPick(); });
        return true;
      }
      case QEvent::ToolTip:
        TellInHand(static_cast<QHelpEvent&>(event).globalPos());
        return true;
      default:
        return false;
    }
  }

  void Point(int place) {
    if (place != model.InHand()) Tell([this, place] { model.UserPoint(place); });
  }

  void Push() override {
    ControlFace::Push();
    const int before = std::exchange(shown, model.InHand());
    area.Show();
    if (before == shown) return;
    const bool isOne = shown != DrawingView::NoPlace, leads = isOne && model.Place(shown).Target != 0;
    area.viewport()->setCursor(leads && !model.IsByKeys() ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (!isOne) return QToolTip::hideText();
    if (model.IsByKeys()) TellInHand(area.viewport()->mapToGlobal(area.RoomOf(shown).center().toPoint()));
  }

  void TellInHand(const QPoint& at) {
    if (shown == DrawingView::NoPlace) return;
    QToolTip::showText(at, PlainToolTip(ToQt(model.Place(shown).Words)), area.viewport(),
                       area.RoomOf(shown).toAlignedRect());
  }

  DrawingView& model;
  DrawingArea& area;
  QPoint pointer;
  int shown = DrawingView::NoPlace, pressed = DrawingView::NoPlace;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfDrawings(FormFace& form, Control& control) {
  return FaceOf<DrawingFace, DrawingView, DrawingArea>(form, control);
}

}  // namespace qel
