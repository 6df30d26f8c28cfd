#include "desktop/DrawnBlock.h"

#include <QFontMetricsF>
#include <QRegularExpression>
#include <QString>

#include "desktop/QtValues.h"

namespace qel {

namespace {

constexpr double HeadingSize = 1.25;  // of the type
constexpr double Gap = 6;

// `share` of one colour, the rest of the other.
QColor Mixed(const QColor& one, const QColor& other, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a * share + b * (1 - share)); };
  return QColor(mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue()));
}

struct Hue {
  const char* style;
  const char* onLight;
  const char* onDark;
};

// As on pages.
constexpr Hue Hues[] = {{"time", "#5a7186", "#93a9bc"},
                        {"cost", "#8d5a80", "#c796bb"},
                        {"dialup", "#1f4e79", "#4f8fc4"},
                        {"service", "#e0a030", "#e6b04f"},
                        {"data", "#7fb7a4", "#a9d9c9"}};

// The toolkit knows plain rules for classes, and neither variables nor the opacity of a fill. Nor does it
// draw patterns, without which hues still differ in brightness.
QString StyleFor(const QPalette& palette) {
  const QColor paper = palette.color(QPalette::Base), text = palette.color(QPalette::Text);
  const QString ink = text.name(), quiet = Mixed(text, paper, 0.7).name();
  const QString line = Mixed(text, paper, 0.14).name(), strong = Mixed(text, paper, 0.45).name();
  QString style;
  for (const char* place : {"start", "middle", "end"})
    style += QStringLiteral(".%1{fill:%2;font-size:12px;text-anchor:%1}").arg(place, quiet);
  style += QStringLiteral(".name{fill:%1;font-size:13px}").arg(ink);
  style += QStringLiteral(".grid{stroke:%1}.axis{stroke:%2}.nothing{fill:%1}").arg(line, strong);
  for (const Hue& hue : Hues)
    style +=
        QStringLiteral(".%1{fill:%2}").arg(hue.style, paper.lightness() < 128 ? hue.onDark : hue.onLight);
  return style + ".shade1{opacity:.25}.shade2{opacity:.5}.shade3{opacity:.75}";
}

QByteArray Styled(const Drawing& drawing, const QPalette& palette) {
  QString markup = QString::fromStdString(drawing.Markup);
  markup.remove(QRegularExpression("<rect [^>]*url\\([^>]*/>\n"));
  markup.insert(markup.indexOf(u'>') + 1, "<style>" + StyleFor(palette) + "</style>");
  return markup.replace(0, 4, "<svg xmlns=\"http://www.w3.org/2000/svg\"").toUtf8();
}

}  // namespace

DrawnBlock::DrawnBlock(const Drawing& drawing, const QPalette& palette)
    : heading(ToQt(drawing.Heading)),
      caption(ToQt(drawing.Caption)),
      size(drawing.Width, drawing.Height),
      renderer(std::make_unique<QSvgRenderer>(Styled(drawing, palette))),
      ink(palette.color(QPalette::Text)),
      quiet(Mixed(ink, palette.color(QPalette::Base), 0.7)) {}

void DrawnBlock::LayOut(const QPointF& corner, double wanted, const QFont& type) {
  scale = wanted;
  captionType = headingType = type;
  headingType.setBold(true);
  headingType.setPixelSize(static_cast<int>(type.pixelSize() * HeadingSize));
  const double width = size.width() * scale;
  const QRectF endless(0, 0, width, 1e6);
  const auto heightOf = [&endless](const QFont& font, const QString& text) {
    return QFontMetricsF(font).boundingRect(endless, Qt::TextWordWrap, text).height();
  };
  headingRoom = {corner, QSizeF(width, heightOf(headingType, heading))};
  captionRoom = {headingRoom.bottomLeft(), QSizeF(width, heightOf(captionType, caption))};
  picture = {captionRoom.bottomLeft() + QPointF(0, Gap * scale), size * scale};
  room = {corner, picture.bottomRight()};
}

void DrawnBlock::Paint(QPainter& painter) {
  painter.setPen(ink);
  painter.setFont(headingType);
  painter.drawText(headingRoom, Qt::TextWordWrap, heading);
  painter.setPen(quiet);
  painter.setFont(captionType);
  painter.drawText(captionRoom, Qt::TextWordWrap, caption);
  renderer->render(&painter, picture);
}

QRectF DrawnBlock::RoomOf(const DrawnPlace& place) const {
  return {picture.left() + place.X * scale, picture.top() + place.Y * scale, place.Width * scale,
          place.Height * scale};
}

}  // namespace qel
