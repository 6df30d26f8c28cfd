// When the connections of a report were used: time and cost along the period, and time by the hour of the
// day.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "reports/DetailLines.h"
#include "values/Calendar.h"

namespace qel {

// What one span of the period covers. A longer period is divided into longer spans, so that there are never
// more of them than a chart has room for.
enum class SpanLength { Day, Week, Month, Year };

struct UseSpan {
  Date First = 0, Last = 0;  // whole days, both inside
  double Seconds = 0;
  double Cost = 0;     // in the user's currency
  int Connection = 0;  // number of the first one that counts in it; 0 for none
};

class UseByTime {
 public:
  // Both days inside the period. Weeks begin on Monday; the first and the last span may be cut short.
  UseByTime(Date start, Date end);

  // Counts time on the days and in the hours in which it passed, and cost on the day on which the connection
  // began. Whatever lies beyond an end of the period goes to the day at that end, so that the sums are those
  // of the lines.
  void Add(const DetailLine& line);

  SpanLength Length() const { return length; }
  const std::vector<UseSpan>& Spans() const { return spans; }
  const std::vector<UseSpan>& Days() const { return days; }  // one each
  const std::array<double, 24>& HourSeconds() const { return hourSeconds; }

 private:
  void Count(Date day, double seconds, double cost, int connection);

  const Date start;
  SpanLength length;
  std::vector<UseSpan> spans, days;
  std::vector<std::size_t> spanOfDay;  // by days since the start
  std::array<double, 24> hourSeconds{};
};

}  // namespace qel
