// A scrolled column of drawings, as wide as there is room for, with one of their places marked.
#pragma once

#include <QAbstractScrollArea>
#include <vector>

#include "controls/DrawingView.h"
#include "desktop/DrawnBlock.h"

namespace qel {

class DrawingArea : public QAbstractScrollArea {
 public:
  explicit DrawingArea(QWidget* parent = nullptr);

  // Whose drawings it shows; null for none.
  void Follow(const DrawingView* wanted) { model = wanted; }
  const DrawingView* Model() const { return model; }
  // Shows them as they are, with the place in hand marked, and in view where keys led to it.
  void Show();
  // Where a place is, in pixels of the viewport, and which one is at a point there.
  QRectF RoomOf(int place) const;
  int PlaceAt(const QPoint& point) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Draw();
  void Arrange();
  void ScrollTo(const QRectF& room);
  QPointF Scrolled() const;

  const DrawingView* model = nullptr;
  std::vector<DrawnBlock> blocks;
  int shownEdition = 0;
  int marked = DrawingView::NoPlace;
};

}  // namespace qel
