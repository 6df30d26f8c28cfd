#include "makelog/LogWriter.h"

#include <ostream>
#include <stdexcept>

namespace qel {

namespace {

constexpr std::size_t BlockSize = 1 << 20;

// Writes `number` at `to` as two digits and gives the place behind them.
char* TwoDigits(char* to, unsigned number) {
  to[0] = static_cast<char>('0' + number / 10);
  to[1] = static_cast<char>('0' + number % 10);
  return to + 2;
}

}  // namespace

LogWriter::LogWriter(std::ostream& out, std::chrono::sys_days firstDay) : out(out), firstDay(firstDay) {
  block.reserve(BlockSize + 4096);
}

void LogWriter::BeginDay(Moment newDay) {
  const std::chrono::year_month_day date{firstDay + std::chrono::days{newDay}};
  const int year = static_cast<int>(date.year());
  if (year > 9999) throw std::runtime_error("the log runs past the year 9999");
  day = newDay;
  char text[] = "MM-DD-YYYY ";
  TwoDigits(text, static_cast<unsigned>(date.month()));
  TwoDigits(text + 3, static_cast<unsigned>(date.day()));
  TwoDigits(TwoDigits(text + 6, static_cast<unsigned>(year / 100)), static_cast<unsigned>(year % 100));
  stamp = text;
}

void LogWriter::Line(Moment moment, std::initializer_list<std::string_view> pieces) {
  if (moment / MomentsPerDay != day) BeginDay(moment / MomentsPerDay);
  const auto time = static_cast<unsigned>(moment % MomentsPerDay);
  char text[] = "hh:nn:ss.ff - ";
  TwoDigits(text, time / 360000);
  TwoDigits(text + 3, time / 6000 % 60);
  TwoDigits(text + 6, time / 100 % 60);
  TwoDigits(text + 9, time % 100);
  block += stamp;
  block += text;
  for (const std::string_view piece : pieces) block += piece;
  block += "\r\n";
  if (block.size() >= BlockSize) Flush();
}

void LogWriter::Flush() {
  out.write(block.data(), static_cast<std::streamsize>(block.size())).flush();
  if (!out) throw std::runtime_error("the log cannot be written");
  written += static_cast<std::int64_t>(block.size());
  block.clear();
}

}  // namespace qel
