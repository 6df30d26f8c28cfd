// Takes the text of a date or a time of day apart, by one reading of what is ambiguous in it.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "values/Calendar.h"

namespace qel {

// A regional time separator such as "." may divide dates too. ":" divides times by every reading.
enum class TimeReading {
  ColonOnly,  // the regional separator divides dates
  TwoParts,   // "10.15" is a time, "10.11.12" a date
  AllParts,   // "10.15" and "10.11.12" are times
};

// The regional time separator where it can divide the parts of a time, else ":".
std::string_view TimeDivider();

// Whether the regional marks tell the halves of a day: two different words.
bool HasDayHalfMarks();

class DateReader {
 public:
  // Reads `text`, which has no blanks around it; a date without a year is one of `thisYear`.
  DateReader(std::string_view text, TimeReading reading, int thisYear)
      : rest(text), reading(reading), thisYear(thisYear) {}

  // Nothing where the text makes no date and no time.
  std::optional<Date> Read();

 private:
  // One of the up to three pieces of a date.
  struct Piece {
    int value = 0;   // of a name: the month
    int digits = 0;  // 0 for the name of a month
  };
  // Where the pieces of a date stand among its pieces.
  struct Places {
    std::size_t day, month;
    std::optional<std::size_t> year;  // thisYear where there is none
  };

  void SkipBlanks();
  bool Take(std::string_view text);
  bool TakeWord(std::string_view word);
  std::optional<Piece> TakeNumber();
  std::optional<Piece> TakeMonthName();
  std::optional<bool> TakeDayHalf();

  bool ReadTime();
  bool ReadTimeParts();
  bool ReadPiece();
  void ReadDivider();

  std::optional<Date> DateOfPieces() const;
  std::optional<Date> DateAt(const Places& places) const;
  Places PlacesBesideName(std::size_t name) const;
  Places PlacesOfNumbers() const;

  std::string_view rest;
  TimeReading reading;
  int thisYear;
  bool afterBlank = true;  // or at the beginning
  std::array<Piece, 3> pieces{};
  std::size_t count = 0;
  char divider = 0;           // read behind the last piece, 0 for blanks or nothing
  bool commaBetween = false;  // between two pieces
  std::optional<Date> time;
  std::size_t piecesBeforeTime = 0;
};

// The date, time of day or both that a text makes by the first reading that makes one, by the rules of
// platform/TextToDate.h.
std::optional<Date> DateIn(std::string_view text, int thisYear);

}  // namespace qel
