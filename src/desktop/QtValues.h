// Values of the models as the toolkit has them, and back: texts, sizes, fonts, days, keys.
#pragma once

#include <QDate>
#include <QFont>
#include <QKeyEvent>
#include <QString>
#include <string>
#include <string_view>

#include "controls/Control.h"
#include "platform/Font.h"
#include "values/Calendar.h"

namespace qel {

// 1440 twips to the inch, 96 device-independent pixels to the inch.
inline constexpr int TwipsPerPixel = 15;
constexpr int Twips(int pixels) { return pixels * TwipsPerPixel; }
constexpr int Pixels(int twips) {
  return (twips + (twips < 0 ? -TwipsPerPixel / 2 : TwipsPerPixel / 2)) / TwipsPerPixel;
}

// Windows-1252 to Unicode, and back with "?" for what the code page lacks.
QString ToQt(std::string_view text);
std::string FromQt(const QString& text);

// As ToQt, with each line break (CR LF, CR or LF) as one line feed.
QString LinesToQt(std::string_view text);

// As FromQt, with each line break (CR LF or LF) as CR LF.
std::string LinesFromQt(QString text);

// A text that tool tips show as it stands, whatever it looks like: they would take "<b>" for a command.
QString PlainToolTip(const QString& text);

// A tip with the keys behind it that do the same, if there are any.
QString WithKeys(const QString& tip, const QString& keys);

// The text with its access key marked, if it holds the letter and marks none itself.
QString WithAccessKey(QString text, const QString& key);

// The parts that `font` leaves open come from `base`.
QFont ToQt(const Font& font, const QFont& base);
Font FromQt(const QFont& font);

// Whole days.
QDate DayToQt(Date day);
Date DayFromQt(const QDate& day);

// The key as handlers see it; Character is what it types, or the letter of a key pressed with Ctrl or Alt.
KeyPress FromQt(const QKeyEvent& event);

}  // namespace qel
