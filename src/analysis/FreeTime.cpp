#include <algorithm>

#include "analysis/Pricing.h"
#include "core/ErrorHandler.h"

namespace qel {

namespace {

// A connection and a free period that both run over midnight are counted up to here before it.
constexpr int AlmostMidnight = SecondsPerDay - 59;

// Seconds of the day; one that does not end behind its beginning runs over midnight.
struct Span {
  int from, to;
  bool OverMidnight() const { return from >= to; }
};

int Overlap(Span one, Span other) {
  return std::max(std::min(one.to, other.to) - std::max(one.from, other.from), 0);
}

int FreeSecondsOf(Span free, Span call) {
  const Span evening{call.from, SecondsPerDay}, morning{0, call.to};
  if (!free.OverMidnight())
    return call.OverMidnight() ? Overlap(free, evening) + Overlap(free, morning) : Overlap(free, call);
  if (call.OverMidnight())
    return Overlap({free.from, AlmostMidnight}, evening) + Overlap({0, free.to}, morning);
  // Of a connection that begins in the morning's free time and ends after it, the evening alone counts.
  if (call.to <= free.to) return call.to - call.from;
  return Overlap({free.from, SecondsPerDay}, call);
}

}  // namespace

Int32 Pricing::GetFreeSeconds(const std::string& number, Date start, Date stop) const {
  Int32 seconds;
  IgnoreErrors([&] {
    const ServiceRecord* service = ServiceOf(number);
    if (!service || !service->FreePeriod) return;
    const Span free{SecondOfDay(service->FreeStart), SecondOfDay(service->FreeEnd)};
    seconds = FreeSecondsOf(free, {SecondOfDay(start), SecondOfDay(stop)});
  });
  return seconds;
}

}  // namespace qel
