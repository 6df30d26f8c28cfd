#include "analysis/TariffWeek.h"

#include <algorithm>
#include <set>

#include "analysis/TariffDays.h"

namespace qel {

std::vector<KindOfDay> KindsOfDay(const Settings& settings, Date today) {
  std::vector<KindOfDay> kinds;
  for (int weekday = 1; weekday <= 7; ++weekday) {
    Date day = WholeDay(today);
    while (Weekday(day) != weekday || IsHoliday(settings, day)) ++day;
    kinds.push_back({weekday, false, day});
  }
  for (int i = 0; i < settings.UsedHolidays; ++i) {
    const Date day = settings.Holidays[i];
    const auto isSuch = [&](const KindOfDay& kind) { return kind.Holiday && kind.Weekday == Weekday(day); };
    if (std::ranges::none_of(kinds, isSuch)) kinds.push_back({Weekday(day), true, day});
  }
  return kinds;
}

TariffWeek::TariffWeek(const Settings& settings, const ServiceRecord& service,
                       const std::vector<KindOfDay>& days)
    : days(days), tariffs(service.UsedTariffs) {
  for (const auto& kind : days) {
    auto& held = spans.emplace_back();
    for (int t = 0; t < tariffs; ++t) {
      const TariffRecord& tariff = service.Tariffs[t];
      const bool holds = DayMatches(settings, kind.Day, tariff.AppliesDays);
      held.push_back(holds ? Span{FirstSecond(tariff), LastSecond(tariff)} : Span{0, -1});
    }
  }
  reached.assign(days.size(), std::vector<bool>(static_cast<std::size_t>(std::max(tariffs, 0))));
  for (std::size_t day = 0; day < days.size(); ++day)
    for (const int second : Moments(day)) Reach(day, At(day, second));
}

int TariffWeek::At(std::size_t day, int second, int from) const {
  for (int i = 0; i < tariffs; ++i) {
    const int t = (from + i) % tariffs;
    if (SpanOf(day, t).Has(second)) return t;
  }
  return NoTariff;
}

std::vector<int> TariffWeek::Moments(std::size_t day) const {
  std::set<int> moments = {0};
  for (const Span& span : spans[day])
    if (span.First <= span.Last) moments.insert({span.First, span.Last + 1});
  moments.erase(moments.lower_bound(SecondsPerDay), moments.end());
  return {moments.begin(), moments.end()};
}

// And what calls in it come to when it ends: the tariffs behind it are asked first, at midnight it itself.
void TariffWeek::Reach(std::size_t day, int tariff) {
  if (tariff == NoTariff || IsReached(day, tariff)) return;
  reached[day][static_cast<std::size_t>(tariff)] = true;
  if (!LastsTillMidnight(day, tariff)) {
    Reach(day, At(day, SpanOf(day, tariff).Last + 1, tariff));
    return;
  }
  for (std::size_t next = 0; next < days.size(); ++next)
    if (IsNext(day, next)) Reach(next, At(next, 0, tariff));
}

}  // namespace qel
