#include "desktop/QtValues.h"

#include <QFontInfo>
#include <QTextDocument>

#include "values/CodePage.h"

namespace qel {

namespace {

const QDate DayZero(1899, 12, 30);

const struct {
  int toolkit;
  Key model;
} Keys[] = {
    {Qt::Key_Return, Key::Enter}, {Qt::Key_Enter, Key::Enter},   {Qt::Key_Escape, Key::Escape},
    {Qt::Key_Up, Key::Up},        {Qt::Key_Down, Key::Down},     {Qt::Key_Left, Key::Left},
    {Qt::Key_Right, Key::Right},  {Qt::Key_PageUp, Key::PageUp}, {Qt::Key_PageDown, Key::PageDown},
    {Qt::Key_Home, Key::Home},    {Qt::Key_End, Key::End},       {Qt::Key_F1, Key::F1},
    {Qt::Key_F3, Key::F3},        {Qt::Key_Delete, Key::Delete},
};

char CharacterOf(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) return '\t';
  const QString text = event.text();
  if (text.size() == 1 && text.front().isPrint()) return FromQt(text).front();
  return event.key() >= Qt::Key_Space && event.key() <= Qt::Key_AsciiTilde ? static_cast<char>(event.key())
                                                                           : '\0';
}

}  // namespace

QString ToQt(std::string_view text) { return QString::fromStdString(ToUtf8(text)); }

std::string FromQt(const QString& text) { return FromUtf8Lossy(text.toStdString()); }

QString LinesToQt(std::string_view text) {
  return ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

std::string LinesFromQt(QString text) {
  return FromQt(text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                    .replace(QStringLiteral("\n"), QStringLiteral("\r\n")));
}

QString PlainToolTip(const QString& text) { return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text; }

QString WithKeys(const QString& tip, const QString& keys) {
  return tip.isEmpty() || keys.isEmpty() ? tip : tip + " (" + keys + ')';
}

QString WithAccessKey(QString text, const QString& key) {
  if (key.isEmpty() || text.contains(u'&')) return text;
  const auto place = text.indexOf(key.front(), 0, Qt::CaseInsensitive);
  return place < 0 ? text : text.insert(place, u'&');
}

QFont ToQt(const Font& font, const QFont& base) {
  QFont shown = base;
  if (!font.Name.empty()) shown.setFamily(ToQt(font.Name));
  if (font.Size > 0) shown.setPointSizeF(static_cast<qreal>(font.Size));
  shown.setBold(font.Bold);
  shown.setItalic(font.Italic);
  return shown;
}

Font FromQt(const QFont& font) {
  const qreal size = font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
  return {FromQt(font.family()), static_cast<float>(size), font.bold(), font.italic()};
}

QDate DayToQt(Date day) { return DayZero.addDays(static_cast<qint64>(WholeDay(day))); }

Date DayFromQt(const QDate& day) { return static_cast<Date>(DayZero.daysTo(day)); }

KeyPress FromQt(const QKeyEvent& event) {
  KeyPress press;
  for (const auto& row : Keys)
    if (row.toolkit == event.key()) press.key = row.model;
  press.Character = press.key == Key::Other ? CharacterOf(event) : '\0';
  press.Shift = event.modifiers().testFlag(Qt::ShiftModifier);
  press.Control = event.modifiers().testFlag(Qt::ControlModifier);
  press.Alt = event.modifiers().testFlag(Qt::AltModifier);
  return press;
}

}  // namespace qel
