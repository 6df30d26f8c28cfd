// Days by the hour, drawn in the colours of who has them, in the size that the window gives them. What nobody
// has is hatched. The pointer is told what it points at.
#pragma once

#include <QWidget>

#include "controls/Timetable.h"

namespace qel {

class TimetableWidget : public QWidget {
 public:
  explicit TimetableWidget(QWidget* parent = nullptr);

  void Show(const Timetable::Content& wanted);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  // Where minutes of a day lie; a day that counts below 0 is the scale above them.
  QRectF PlaceOf(int day, int from, int to) const;
  int LineHeight() const { return fontMetrics().height() + 2; }
  QString NameOf(int holder) const;
  QString At(const QPointF& point) const;
  void DrawScale(QPainter& painter) const;
  void DrawStretch(QPainter& painter, const QRectF& place, int holder) const;

  Timetable::Content content;
};

}  // namespace qel
