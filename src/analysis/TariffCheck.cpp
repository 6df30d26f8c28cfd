// The findings about one service's tariffs.
#include <algorithm>
#include <set>

#include "analysis/SettingsCheck.h"
#include "analysis/TariffDays.h"
#include "analysis/TariffWeek.h"

namespace qel {

namespace {

constexpr MinuteSpan WholeDayLong = {0, LastMinuteOfDay};

MinuteSpan Minutes(int firstSecond, int lastSecond) {
  return {firstSecond / 60, std::min(lastSecond, SecondsPerDay - 1) / 60};
}

DaySet BitOf(const KindOfDay& kind) { return 1u << (kind.Holiday ? HolidayBit : kind.Weekday - 1); }

std::string On(DaySet days) {
  const std::string words = DaysInWords(days);
  return words.starts_with("every") ? words : "on " + words;
}

std::string InWords(const MinuteSpan& minutes) {
  if (minutes == WholeDayLong) return "at any time";
  return "from " + ClockText(minutes.From) + " to " + ClockText(minutes.To);
}

class TariffCheck {
 public:
  TariffCheck(const Settings& settings, const ServiceRecord& service, Date today)
      : service(service),
        name(ServiceNameOf(service)),
        anyHolidays(settings.UsedHolidays > 0),
        assumed(HolidaysOf(settings, today)),
        days(KindsOfDay(assumed, today)),
        week(assumed, service, days) {}

  std::vector<Finding> Findings() {
    FindGaps();
    for (int t = 0; t < week.Tariffs(); ++t) {
      FindRange(t);
      FindUnreached(t);
    }
    FindRunsOver();
    return std::move(findings);
  }

 private:
  // The holidays, as far as days are judged by settings. Without any, tariffs for them are judged as if there
  // were one on each day of some week.
  static Settings HolidaysOf(const Settings& settings, Date today) {
    Settings holidays;
    holidays.Holidays = settings.Holidays;
    holidays.UsedHolidays = settings.UsedHolidays;
    if (settings.UsedHolidays > 0) return holidays;
    for (int i = 0; i < 7; ++i) holidays.Holidays[i] = WholeDay(today) + i;
    holidays.UsedHolidays = 7;
    return holidays;
  }

  bool IsReal(const KindOfDay& kind) const { return !kind.Holiday || anyHolidays; }
  std::string Called(int tariff) const { return "'" + service.Tariffs[tariff].Description + "'"; }
  MinuteSpan TimeOf(int tariff) const {
    return Minutes(FirstSecond(service.Tariffs[tariff]), LastSecond(service.Tariffs[tariff]));
  }

  void Add(FindingKind kind, DaySet on, std::optional<MinuteSpan> minutes, std::string text) {
    findings.push_back({kind, name, on, minutes, std::move(text)});
  }

  // Something that shows on several days in the same minutes.
  struct Shown {
    MinuteSpan Minutes;
    int Tariff, Other;
    bool OverMidnight;
    DaySet Days;
  };
  static void Show(std::vector<Shown>& all, const Shown& one) {
    const auto same = std::ranges::find_if(all, [&](const Shown& shown) {
      return shown.Minutes == one.Minutes && shown.Tariff == one.Tariff && shown.Other == one.Other &&
             shown.OverMidnight == one.OverMidnight;
    });
    if (same != all.end())
      same->Days |= one.Days;
    else
      all.push_back(one);
  }

  void FindGaps() {
    std::vector<Shown> gaps;
    for (std::size_t day = 0; day < days.size(); ++day) {
      if (!IsReal(days[day])) continue;
      int begin = -1;  // of the gap in hand
      for (const int second : week.Moments(day)) {
        const bool open = week.At(day, second) == NoTariff;
        if (open && begin < 0) begin = second;
        if (!open && begin >= 0)
          Show(gaps, {Minutes(begin, second - 1), NoTariff, NoTariff, false, BitOf(days[day])});
        if (!open) begin = -1;
      }
      if (begin >= 0)
        Show(gaps, {Minutes(begin, SecondsPerDay - 1), NoTariff, NoTariff, false, BitOf(days[day])});
    }
    for (const auto& gap : gaps) Add(FindingKind::Gap, gap.Days, gap.Minutes, Told(gap));
  }

  std::string Told(const Shown& gap) const {
    if ((gap.Days & Week) == Week && gap.Minutes == WholeDayLong)
      return "No tariff of " + name +
             " holds at any time: nothing is charged for its calls, and no report says so.";
    return "Calls to " + name + " that begin " + On(gap.Days) + " " + InWords(gap.Minutes) +
           " have no tariff: they are charged nothing for the call, however long they last, and no report "
           "says so. Calls that run into that time pay for what lies before it alone, and the Details mark "
           "those that pay anything 'Incomplete Tariff'.";
  }

  void FindRange(int t) {
    const TariffRecord& tariff = service.Tariffs[t];
    if (tariff.AppliesDays == "Holidays") return;
    DaySet held = 0;
    for (int day = 0; day < HolidayBit; ++day)
      if (DayMatches(assumed, days[static_cast<std::size_t>(day)].Day, tariff.AppliesDays)) held |= 1u << day;
    const DaySet named = DaysNamed(tariff.AppliesDays);
    if (held == named && held != 0) return;
    const std::string says = Called(tariff.AppliesDays, t);
    if (held == 0)
      Add(FindingKind::Range, named, TimeOf(t),
          says + (named == 0 ? ", which names no days: no call is ever charged by it."
                             : ", but a range over Sunday holds on no day: no call is ever charged by it."));
    else
      Add(FindingKind::Range, held ^ named, TimeOf(t),
          says + ", but it holds " + On(held) + ": calls " + On(held & ~named) +
              " are charged by it too where no tariff before it holds.");
  }

  std::string Called(const std::string& says, int t) const {
    return "The tariff " + Called(t) + " of " + name + " says '" + says + "'";
  }

  // The tariffs that calls get which begin where tariff `t` holds too; `on` becomes the days of that.
  std::set<int> HeldInstead(int t, DaySet& on) const {
    std::set<int> holders;
    for (std::size_t day = 0; day < days.size(); ++day)
      for (const int second : week.Moments(day))
        if (week.SpanOf(day, t).Has(second)) {
          holders.insert(week.At(day, second));
          on |= BitOf(days[day]);
        }
    return holders;
  }

  void FindUnreached(int t) {
    DaySet on = 0;
    const std::set<int> holders = HeldInstead(t, on);
    if (holders.contains(t)) return;
    if (holders.empty()) {
      const bool ends = FirstSecond(service.Tariffs[t]) > LastSecond(service.Tariffs[t]);
      if (ends)
        Add(FindingKind::Unreached, 0, TimeOf(t),
            "No call to " + name + " is ever charged by " + Called(t) + ": it ends before it begins.");
      return;
    }
    std::string names;
    for (const int holder : holders) {
      const std::string called = Called(holder);
      if (names.find(called) == std::string::npos) names += (names.empty() ? "" : ", ") + called;
    }
    bool reached = false;
    for (std::size_t day = 0; day < days.size(); ++day) reached = reached || week.IsReached(day, t);
    Add(FindingKind::Unreached, on, TimeOf(t),
        "No call to " + name + (reached ? " begins in " : " is ever charged by ") + Called(t) + " " + On(on) +
            " " + InWords(TimeOf(t)) + ": all its time is held by what stands before it in the list, " +
            names + "." +
            (reached ? " Only a call that runs on from a tariff that ends can come to it." : ""));
  }

  void FindRunsOver() {
    std::vector<Shown> kept;
    for (std::size_t day = 0; day < days.size(); ++day) {
      if (!IsReal(days[day])) continue;
      int before = NoTariff;
      for (const int second : week.Moments(day)) {
        const int now = week.At(day, second);
        if (before != NoTariff && now != before && week.SpanOf(day, before).Has(second))
          Keep(kept, day, second, before, now, false);
        before = now;
      }
      for (std::size_t eve = 0; eve < days.size(); ++eve)
        if (week.IsNext(eve, day) && IsReal(days[eve])) KeepOverMidnight(kept, eve, day);
    }
    for (const auto& one : kept)
      Add(FindingKind::RunsOver, one.Days, one.Minutes,
          "Calls to " + name + " that run " + On(one.Days) + " past " +
              (one.OverMidnight ? "midnight" : ClockText(one.Minutes.From)) + " in " + Called(one.Tariff) +
              " are charged by it up to " + ClockText(one.Minutes.To) + ", though calls that begin at " +
              ClockText(one.Minutes.From) + " are charged by " + Called(one.Other) + ".");
  }

  void Keep(std::vector<Shown>& kept, std::size_t day, int second, int tariff, int other, bool overMidnight) {
    Show(kept,
         {Minutes(second, week.SpanOf(day, tariff).Last), tariff, other, overMidnight, BitOf(days[day])});
  }

  // At midnight a call is first offered the tariff that it was in.
  void KeepOverMidnight(std::vector<Shown>& kept, std::size_t eve, std::size_t day) {
    const int other = week.At(day, 0);
    for (int t = 0; t < week.Tariffs(); ++t)
      if (t != other && week.IsReached(eve, t) && week.LastsTillMidnight(eve, t) &&
          week.SpanOf(day, t).Has(0))
        Keep(kept, day, 0, t, other, true);
  }

  const ServiceRecord& service;
  const std::string name;
  const bool anyHolidays;
  const Settings assumed;
  const std::vector<KindOfDay> days;
  const TariffWeek week;
  std::vector<Finding> findings;
};

}  // namespace

std::vector<Finding> CheckTariffs(const Settings& settings, const ServiceRecord& service, Date today) {
  if (service.DialOption != ServiceRecord::ByTariffs) return {};
  return TariffCheck(settings, service, today).Findings();
}

}  // namespace qel
