// Writes the dated lines of a modem log: "MM-DD-YYYY hh:nn:ss.ff - text" with CR LF.
#pragma once

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>

namespace qel {

// Hundredths of a second since midnight before the log's first day.
using Moment = std::int64_t;

inline constexpr Moment MomentsPerSecond = 100;
inline constexpr Moment MomentsPerDay = 86400 * MomentsPerSecond;

// Lines gather in a block of a megabyte, whatever the size of the log.
class LogWriter {
 public:
  LogWriter(std::ostream& out, std::chrono::sys_days firstDay);

  // Writes a line of the pieces, one behind the other. Raises std::runtime_error behind the year 9999, for
  // which a line has no room, and where the stream fails.
  void Line(Moment moment, std::initializer_list<std::string_view> pieces);

  // Bytes of all lines so far.
  std::int64_t Size() const { return written + static_cast<std::int64_t>(block.size()); }

  // Hands the last lines to the stream. Raises std::runtime_error where the stream fails.
  void Flush();

 private:
  void BeginDay(Moment day);

  std::ostream& out;
  std::chrono::sys_days firstDay;
  Moment day = -1;    // the day of `stamp`, counted from the first
  std::string stamp;  // "MM-DD-YYYY "
  std::string block;
  std::int64_t written = 0;
};

}  // namespace qel
