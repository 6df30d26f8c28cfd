#include "ui/WeekAtAGlance.h"

#include "values/CodePage.h"

namespace qel {

namespace {

std::vector<WeekAtAGlance::Stretch> StretchesOf(const TariffWeek& week, std::size_t day) {
  std::vector<WeekAtAGlance::Stretch> stretches;
  for (const int second : week.Moments(day)) {
    const int tariff = week.At(day, second), minute = second / 60;
    if (!stretches.empty() && stretches.back().Tariff == tariff) continue;
    if (!stretches.empty()) stretches.back().Minutes.To = (second - 1) / 60;
    stretches.push_back({{minute, LastMinuteOfDay}, tariff});
  }
  return stretches;
}

// The next holiday, or else the last; 0 for none.
Date HolidayToShow(const Settings& settings, Date today) {
  Date shown = 0;
  for (int i = 0; i < settings.UsedHolidays; ++i) {
    const Date day = settings.Holidays[i];
    const bool comes = day >= today, shownComes = shown >= today;
    if (shown == 0 || (comes == shownComes ? comes == (day < shown) : comes)) shown = day;
  }
  return shown;
}

std::string InWords(const std::vector<WeekAtAGlance::Stretch>& day, const ServiceRecord& service) {
  std::string text;
  for (const auto& [minutes, tariff] : day) {
    text += (text.empty() ? "" : ", ") +
            (tariff == NoTariff ? std::string("no tariff") : service.Tariffs[tariff].Description);
    if (day.size() > 1) text += " from " + ClockText(minutes.From) + " to " + ClockText(minutes.To);
  }
  return text;
}

}  // namespace

WeekAtAGlance WeekOf(const Settings& settings, const ServiceRecord& service, Date today) {
  WeekAtAGlance picture;
  const auto kinds = KindsOfDay(settings, today);
  const TariffWeek week(settings, service, kinds);
  const int holiday = Weekday(HolidayToShow(settings, WholeDay(today)));
  for (std::size_t day = 0; day < kinds.size(); ++day)
    if (!kinds[day].Holiday)
      picture.Days[day] = StretchesOf(week, day);
    else if (kinds[day].Weekday == holiday)
      picture.Days[HolidayBit] = StretchesOf(week, day);
  return picture;
}

std::string InWords(const WeekAtAGlance& week, const ServiceRecord& service) {
  std::string text;
  DaySet told = 0;
  for (std::size_t day = 0; day < week.Days.size(); ++day) {
    if (told >> day & 1 || week.Days[day].empty()) continue;
    DaySet alike = 0;
    for (std::size_t other = day; other < week.Days.size(); ++other)
      if (week.Days[other] == week.Days[day]) alike |= 1u << other;
    told |= alike;
    std::string days = DaysInWords(alike);
    days[0] = static_cast<char>(UpperCase(static_cast<unsigned char>(days[0])));
    text += (text.empty() ? "" : " ") + days + ": " + InWords(week.Days[day], service) + ".";
  }
  return text;
}

Timetable::Content TimetableOf(const WeekAtAGlance& week, const ServiceRecord& service) {
  Timetable::Content content{{}, {}, "no tariff", InWords(week, service)};
  for (int t = 0; t < service.UsedTariffs; ++t) content.Holders.push_back(service.Tariffs[t].Description);
  for (int day = 0; day < DayCount; ++day) {
    const auto& stretches = week.Days[static_cast<std::size_t>(day)];
    if (stretches.empty()) continue;
    auto& row = content.Days.emplace_back(Timetable::Day{DayName(day), {}});
    for (const auto& [minutes, tariff] : stretches)
      row.Stretches.push_back({minutes.From, minutes.To, tariff});
  }
  return content;
}

}  // namespace qel
