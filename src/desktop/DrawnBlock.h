// One drawing with its heading and caption as a block: laid out for a width, and painted there, on the screen
// and on paper. Lengths are pixels of the painter.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <QSvgRenderer>
#include <memory>

#include "platform/Drawing.h"

namespace qel {

class DrawnBlock {
 public:
  static constexpr int TypeSize = 12;  // of captions, as of the drawings' own words

  // In the colours of a palette: its paper and ink, and hues that stand out from them, dark or light.
  DrawnBlock(const Drawing& drawing, const QPalette& palette);

  // From a corner on; `scale` pixels show a unit of the drawing. `type` is that of captions.
  void LayOut(const QPointF& corner, double scale, const QFont& type);
  void Paint(QPainter& painter);

  const QSizeF& Units() const { return size; }
  const QRectF& Room() const { return room; }
  QRectF RoomOf(const DrawnPlace& place) const;
  // Of a point of the painter, in units of the drawing.
  QPointF UnitsOf(const QPointF& point) const { return (point - picture.topLeft()) / scale; }

 private:
  QString heading, caption;
  QSizeF size;  // units
  std::unique_ptr<QSvgRenderer> renderer;
  QColor ink, quiet;
  QFont headingType, captionType;
  QRectF room, headingRoom, captionRoom, picture;
  double scale = 1;
};

}  // namespace qel
