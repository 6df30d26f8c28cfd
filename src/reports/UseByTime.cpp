#include "reports/UseByTime.h"

#include <algorithm>

namespace qel {

namespace {

constexpr int MostSpans = 100;
constexpr int DaysPerWeek = 7, DaysPerMonth = 30;
constexpr int SecondsPerHour = 3600;

SpanLength LengthFor(int days) {
  if (days <= MostSpans) return SpanLength::Day;
  if (days <= MostSpans * DaysPerWeek) return SpanLength::Week;
  return days <= MostSpans * DaysPerMonth ? SpanLength::Month : SpanLength::Year;
}

bool BeginsSpan(Date day, SpanLength length) {
  const CalendarDay parts = DayOf(day);
  switch (length) {
    case SpanLength::Day:
      return true;
    case SpanLength::Week:
      return Weekday(day) == 1;
    case SpanLength::Month:
      return parts.day == 1;
    case SpanLength::Year:
      break;
  }
  return parts.day == 1 && parts.month == 1;
}

}  // namespace

UseByTime::UseByTime(Date start, Date end) : start(start), length(LengthFor(DaysBetween(start, end) + 1)) {
  for (Date day = start; day <= end; ++day) {
    if (spans.empty() || BeginsSpan(day, length)) spans.push_back({.First = day});
    spans.back().Last = day;
    spanOfDay.push_back(spans.size() - 1);
    days.push_back({day, day});
  }
}

void UseByTime::Count(Date day, double seconds, double cost, int connection) {
  const int index = DaysBetween(start, day), last = static_cast<int>(days.size()) - 1;
  const auto at = static_cast<std::size_t>(std::clamp(index, 0, last));
  for (UseSpan* use : {&days[at], &spans[spanOfDay[at]]}) {
    use->Seconds += seconds;
    use->Cost += cost;
    if (use->Connection == 0) use->Connection = connection;
  }
}

void UseByTime::Add(const DetailLine& line) {
  const ConnectionRecord& connection = line.Connection;
  Count(connection.StartDate, 0, line.ConnectionCost, line.Index);
  const bool beganBefore = connection.StartDate < start;  // the line then counts from the midnight behind
  Date day = beganBefore ? connection.StartDate + 1 : connection.StartDate;
  int second = beganBefore ? 0 : SecondOfDay(connection.StartTime);
  for (int left = line.Seconds; left != 0;) {
    const int piece = std::min(left, SecondsPerHour - second % SecondsPerHour);
    Count(day, piece, 0, line.Index);
    hourSeconds[static_cast<std::size_t>(second / SecondsPerHour)] += piece;
    left -= piece;
    second += piece;
    if (second < SecondsPerDay) continue;
    second = 0;
    ++day;
  }
}

}  // namespace qel
