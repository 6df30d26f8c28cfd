#include "desktop/Printing.h"

#include <QAbstractTextDocumentLayout>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScreen>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

#include "desktop/Dialogues.h"
#include "desktop/DrawnBlock.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

constexpr qreal SmallestType = 6;  // points that can still be read
constexpr qreal PreferredType = 10;
constexpr int TwipsPerInch = 1440;

QFont TypeOf(const PrintJob& job) {
  QFont type = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (type.pointSizeF() <= 0) type.setPointSizeF(PreferredType);
  type = ToQt(job.Font, type);
  type.setStyleHint(QFont::TypeWriter);
  type.setFixedPitch(true);
  return type;
}

// In a type of fixed pitch the longest line is the widest.
QString LongestLine(const QString& text) {
  const QStringList lines = text.split(u'\n');
  return *std::max_element(lines.begin(), lines.end(),
                           [](const QString& a, const QString& b) { return a.size() < b.size(); });
}

QFont FittedType(const QString& text, QFont type, qreal room, QPaintDevice& device) {
  const QString line = LongestLine(text);
  while (type.pointSizeF() > SmallestType && QFontMetricsF(type, &device).horizontalAdvance(line) > room)
    type.setPointSizeF(std::max(SmallestType, type.pointSizeF() - 0.25));
  return type;
}

// Below a text of that height, whose last page the painter stands on, in the colours of paper.
void PrintDrawings(const PrintJob& job, QPagedPaintDevice& printer, QPainter& painter, const QSizeF& page,
                   double textHeight) {
  constexpr double unitsPerInch = 96, between = 20;
  const double scale = printer.logicalDpiX() / unitsPerInch;
  painter.scale(scale, scale);
  const QSizeF room = page / scale;
  const QPalette paper(Qt::black, Qt::white, Qt::white, Qt::black, Qt::gray, Qt::black, Qt::white);
  QFont type("Arial");
  type.setPixelSize(DrawnBlock::TypeSize);
  double pageTop = (std::ceil(textHeight / page.height()) - 1) * room.height(), top = textHeight / scale;
  for (const Drawing& drawing : job.Drawings) {
    DrawnBlock block(drawing, paper);
    const double fitting = std::min(1.0, room.width() / drawing.Width);
    block.LayOut({0, top}, fitting, type);
    if (block.Room().bottom() > pageTop + room.height() && top > pageTop) {
      printer.newPage();
      painter.translate(0, -room.height());
      pageTop += room.height();
      top = pageTop;
      block.LayOut({0, top}, fitting, type);
    }
    block.Paint(painter);
    top = block.Room().bottom() + between;
  }
}

}  // namespace

void PreviewAndPrint(const PrintJob& job) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(ToQt(job.Title));
  QPrintPreviewDialog preview(&printer);
  preview.setWindowTitle(ToQt(job.Title));
  preview.resize(preview.screen()->availableSize() * 3 / 4);  // of its own it would show a stamp
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                   [&job](QPrinter* pages) { PrintPages(job, *pages); });
  RunDialogue(preview);
}

void PrintPages(const PrintJob& job, QPagedPaintDevice& printer) {
  QPainter painter;
  if (!painter.begin(&printer)) return;
  const qreal left = job.Left * printer.logicalDpiX() / qreal(TwipsPerInch);
  const QSizeF page(std::max(1.0, printer.width() - left), printer.height());
  const QString text = LinesToQt(job.Text);

  QTextDocument document;
  document.setDocumentMargin(0);
  document.documentLayout()->setPaintDevice(&printer);
  document.setDefaultFont(FittedType(text, TypeOf(job), page.width(), printer));
  document.setPlainText(text);
  document.setPageSize(page);

  painter.translate(left, 0);
  for (int number = 0; number < document.pageCount(); ++number) {
    if (number > 0) {
      printer.newPage();
      painter.translate(0, -page.height());
    }
    document.drawContents(&painter, QRectF(QPointF(0, number * page.height()), page));
  }
  PrintDrawings(job, printer, painter, page, document.size().height());
}

}  // namespace qel
