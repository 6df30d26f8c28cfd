#include "desktop/DrawingArea.h"

#include <QAccessible>
#include <QEvent>
#include <QFontInfo>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/DrawingAccess.h"

namespace qel {

namespace {

// In sizes of the type.
constexpr double Margin = 1.2, BetweenBlocks = 2;
// Scales beside that of the window's type.
constexpr double Smallest = 0.8, Largest = 1.5;
constexpr double MarkGap = 2;  // pixels

}  // namespace

DrawingArea::DrawingArea(QWidget* parent) : QAbstractScrollArea(parent) {
  TellPlacesOfDrawings();  // before the area has a name, which is told at once
  viewport()->setBackgroundRole(QPalette::Base);
  viewport()->setAutoFillBackground(true);
  setFocusPolicy(Qt::StrongFocus);
}

void DrawingArea::Show() {
  if (std::exchange(shownEdition, model->Edition()) != model->Edition()) {
    Draw();
    verticalScrollBar()->setValue(0);
  }
  if (std::exchange(marked, model->InHand()) == model->InHand()) return;
  viewport()->update();
  if (marked == DrawingView::NoPlace) return;
  if (model->IsByKeys()) ScrollTo(RoomOf(marked).translated(Scrolled()));
  if (!hasFocus()) return;
  QAccessibleEvent news(this, QAccessible::Focus);
  news.setChild(marked);
  QAccessible::updateAccessibility(&news);
}

void DrawingArea::Draw() {
  blocks.clear();
  if (!model) return;
  for (const Drawing& drawing : model->Drawings()) blocks.emplace_back(drawing, palette());
  Arrange();
  viewport()->update();
}

void DrawingArea::Arrange() {
  constexpr double typeSize = DrawnBlock::TypeSize;
  const double base = QFontInfo(font()).pixelSize() / typeSize;
  const QSize seen = viewport()->size();
  double widest = 1;
  for (const DrawnBlock& block : blocks) widest = std::max(widest, block.Units().width());
  const double room = seen.width() / (widest + 2 * Margin * typeSize);
  const double scale = std::clamp(room, Smallest * base, Largest * base);
  const double margin = Margin * typeSize * scale;
  const double left = std::max(margin, (seen.width() - widest * scale) / 2);
  QFont type = font();
  type.setPixelSize(static_cast<int>(std::lround(typeSize * scale)));
  double top = margin;
  for (DrawnBlock& block : blocks) {
    block.LayOut({left, top}, scale, type);
    top = block.Room().bottom() + BetweenBlocks * typeSize * scale;
  }
  const QSize whole(static_cast<int>(widest * scale + 2 * margin), static_cast<int>(top));
  const auto setBar = [](QScrollBar& bar, int length, int page) {
    bar.setPageStep(page);
    bar.setSingleStep(std::max(1, page / 12));
    bar.setRange(0, std::max(0, length - page));
  };
  setBar(*verticalScrollBar(), blocks.empty() ? 0 : whole.height(), seen.height());
  setBar(*horizontalScrollBar(), blocks.empty() ? 0 : whole.width(), seen.width());
}

QPointF DrawingArea::Scrolled() const {
  return QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

// With some of what is around it.
void DrawingArea::ScrollTo(const QRectF& room) {
  const auto show = [](QScrollBar& bar, double from, double to) {
    const double around = bar.pageStep() / 8.0;
    if (from - around < bar.value()) bar.setValue(static_cast<int>(from - around));
    if (to + around > bar.value() + bar.pageStep())
      bar.setValue(static_cast<int>(to + around) - bar.pageStep());
  };
  show(*verticalScrollBar(), room.top(), room.bottom());
  show(*horizontalScrollBar(), room.left(), room.right());
}

QRectF DrawingArea::RoomOf(int place) const {
  return blocks[model->DrawingOf(place)].RoomOf(model->Place(place)).translated(-Scrolled());
}

int DrawingArea::PlaceAt(const QPoint& point) const {
  const QPointF at = point + Scrolled();
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (!blocks[i].Room().contains(at)) continue;
    const QPointF units = blocks[i].UnitsOf(at);
    return model->PlaceAt(i, units.x(), units.y());
  }
  return DrawingView::NoPlace;
}

void DrawingArea::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-Scrolled());
  const QRectF seen(Scrolled(), viewport()->size());
  for (DrawnBlock& block : blocks)
    if (block.Room().intersects(seen)) block.Paint(painter);
  if (marked == DrawingView::NoPlace || !model) return;
  painter.resetTransform();
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(RoomOf(marked).adjusted(-MarkGap, -MarkGap, MarkGap, MarkGap));
}

void DrawingArea::resizeEvent(QResizeEvent*) { Arrange(); }

void DrawingArea::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Draw();
}

}  // namespace qel
