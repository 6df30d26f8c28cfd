#include "desktop/TimetableWidget.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "desktop/Look.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

constexpr int HoursOfMark = 3;  // between two marks of the scale
constexpr int Gap = 6;          // between the names and the days

QString Clock(int minute) {
  return QStringLiteral("%1:%2").arg(minute / 60, 2, 10, QChar('0')).arg(minute % 60, 2, 10, QChar('0'));
}

}  // namespace

TimetableWidget::TimetableWidget(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void TimetableWidget::Show(const Timetable::Content& wanted) {
  if (content == wanted) return;
  const bool grows = content.Days.size() != wanted.Days.size();
  content = wanted;
  setAccessibleDescription(ToQt(content.InWords));
  if (grows) updateGeometry();
  update();
}

QSize TimetableWidget::sizeHint() const {
  const int lines = 1 + static_cast<int>(content.Days.size());
  return {24 * fontMetrics().horizontalAdvance(u'0'), LineHeight() * lines + 1};
}

QRectF TimetableWidget::PlaceOf(int day, int from, int to) const {
  int names = 0;
  for (const auto& row : content.Days)
    names = std::max(names, fontMetrics().horizontalAdvance(ToQt(row.Name)) + Gap);
  const double minute = static_cast<double>(width() - names - 1) / Timetable::MinutesOfDay;
  const double line = LineHeight();
  return {names + from * minute, line * (day + 1), (to + 1 - from) * minute, line};
}

QString TimetableWidget::NameOf(int holder) const {
  return ToQt(holder == Timetable::Nobody ? content.NobodyName
                                          : content.Holders[static_cast<std::size_t>(holder)]);
}

QString TimetableWidget::At(const QPointF& point) const {
  int day = 0;
  for (const auto& row : content.Days) {
    for (const auto& [from, to, holder] : row.Stretches)
      if (PlaceOf(day, from, to).contains(point))
        return ToQt(row.Name) + u' ' + Clock(from) + QStringLiteral(" - ") + Clock(to) + u' ' +
               NameOf(holder);
    ++day;
  }
  return {};
}

bool TimetableWidget::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& help = static_cast<QHelpEvent&>(*event);
  QToolTip::showText(help.globalPos(), PlainToolTip(At(help.pos())), this);
  return true;
}

void TimetableWidget::DrawScale(QPainter& painter) const {
  for (int hour = 0; hour <= 24; hour += HoursOfMark) {
    const double at = PlaceOf(-1, hour * 60, hour * 60).left();
    const QString text = QString::number(hour);
    const double width = fontMetrics().horizontalAdvance(text);
    painter.drawText(QPointF(std::min(at - width / 2, this->width() - width), fontMetrics().ascent()), text);
  }
}

// The name stands in its time where there is room for it.
void TimetableWidget::DrawStretch(QPainter& painter, const QRectF& place, int holder) const {
  painter.fillRect(place, palette().base());
  if (holder == Timetable::Nobody)
    painter.fillRect(place, QBrush(palette().color(QPalette::Text), Qt::BDiagPattern));
  else if (isEnabled())
    painter.fillRect(place, MarkColour(holder));
  painter.drawRect(place);
  const QString name = NameOf(holder);
  QRectF room(0, 0, fontMetrics().horizontalAdvance(name) + Gap, place.height() - 1);
  if (room.width() > place.width()) return;
  room.moveCenter(place.center());
  if (holder == Timetable::Nobody) painter.fillRect(room.adjusted(0, 1, 0, 0), palette().base());
  painter.drawText(room, Qt::AlignCenter, name);
}

void TimetableWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  DrawScale(painter);
  int day = 0;
  for (const auto& row : content.Days) {
    const QRectF whole = PlaceOf(day, 0, Timetable::MinutesOfDay - 1);
    painter.drawText(QRectF(0, whole.top(), whole.left(), whole.height()), Qt::AlignVCenter, ToQt(row.Name));
    for (const auto& [from, to, holder] : row.Stretches) DrawStretch(painter, PlaceOf(day, from, to), holder);
    ++day;
  }
}

}  // namespace qel
