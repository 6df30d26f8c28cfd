#include "platform/Clock.h"

#include <ctime>
#include <optional>

namespace qel {

namespace {

std::optional<Date> stopped;

}  // namespace

Date Now() {
  if (stopped) return *stopped;
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
  localtime_r(&seconds, &local);
  return DateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) +
         TimeSerial(local.tm_hour, local.tm_min, local.tm_sec);
}

Date Today() { return WholeDay(Now()); }

void StopClockAt(Date moment) { stopped = moment; }
void ResetClock() { stopped.reset(); }

}  // namespace qel
