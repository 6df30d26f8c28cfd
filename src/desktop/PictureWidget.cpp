#include "desktop/PictureWidget.h"

#include <QDynamicPropertyChangeEvent>
#include <QPainter>
#include <QVariant>

namespace qel {

namespace {

// The largest place of a shape's proportions in the middle of `room`.
QRectF Fitted(const QSizeF& shape, const QRectF& room) {
  QRectF place(QPointF(), shape.scaled(room.size(), Qt::KeepAspectRatio));
  place.moveCenter(room.center());
  return place;
}

}  // namespace

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) {}

void PictureWidget::SetFrame(int wanted) {
  if (frame == wanted) return;
  frame = wanted;
  update();
}

QSize PictureWidget::sizeHint() const { return drawing.isValid() ? drawing.defaultSize() : QSize(); }

bool PictureWidget::event(QEvent* event) {
  if (event->type() == QEvent::DynamicPropertyChange &&
      static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == "svg") {
    drawing.load(property("svg").toString());
    updateGeometry();
    update();
  }
  return QWidget::event(event);
}

void PictureWidget::paintEvent(QPaintEvent*) {
  if (!drawing.isValid() || frame < 0) return;
  QPainter painter(this);
  const QString element = QStringLiteral("frame%1").arg(frame);
  if (frame > 0 && drawing.elementExists(element))
    drawing.render(&painter, element, Fitted(drawing.boundsOnElement(element).size(), rect()));
  else
    drawing.render(&painter, Fitted(drawing.defaultSize(), rect()));
}

}  // namespace qel
