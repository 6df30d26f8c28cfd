#include "analysis/SettingsCheck.h"

#include <algorithm>

#include "settings/ServiceStore.h"
#include "values/DateFormat.h"

namespace qel {

namespace {

void FindNoCost(const ServiceRecord& service, std::vector<Finding>& findings) {
  if (!CostsNothing(service)) return;
  findings.push_back(
      {FindingKind::NoCost, ServiceNameOf(service), 0, std::nullopt,
       "Calls to " + ServiceNameOf(service) +
           " cost nothing: the service has no rate for the call, the time on line or the data."});
}

// A number that the service shares with one before it, which gets all its calls.
void FindSharedNumbers(const Settings& settings, int index, std::vector<Finding>& findings) {
  const ServiceRecord& service = settings.Services[index];
  std::vector<std::string> numbers = {service.ServiceNumber};
  if (service.ServiceAltNumber != service.ServiceNumber) numbers.push_back(service.ServiceAltNumber);
  for (const auto& number : numbers)
    for (int i = 0; !number.empty() && i < index; ++i) {
      const ServiceRecord& first = settings.Services[i];
      if (number != first.ServiceNumber && number != first.ServiceAltNumber) continue;
      findings.push_back({FindingKind::SharedNumber, ServiceNameOf(service), 0, std::nullopt,
                          "Calls to " + number + " are charged as calls to " + ServiceNameOf(first) + ": " +
                              ServiceNameOf(service) +
                              " has the same number, but stands behind it in the list."});
      break;
    }
}

void FindPastHolidays(const Settings& settings, Date today, std::vector<Finding>& findings) {
  std::vector<Date> past;
  for (int i = 0; i < settings.UsedHolidays; ++i)
    if (const Date day = settings.Holidays[i]; day >= FirstDate && day < WholeDay(today)) past.push_back(day);
  if (past.empty()) return;
  std::ranges::sort(past);
  const bool one = past.size() == 1, all = static_cast<int>(past.size()) == settings.UsedHolidays;
  std::string text = one ? "The holiday of " + IsoDate(past[0]) + " is past: it matters"
                         : std::to_string(past.size()) + " holidays, from " + IsoDate(past.front()) + " to " +
                               IsoDate(past.back()) + ", are past: they matter";
  text += " only to calls of that time.";
  if (all) text += " No call from today on is charged as on a holiday.";
  findings.push_back({FindingKind::PastHoliday, "", 1u << HolidayBit, std::nullopt, text});
}

// The second rate of service 1 and the first one of service 21 have one name. It changes a price only where
// such a rate is in use.
void FindNameClashes(const Settings& settings, std::vector<Finding>& findings) {
  for (int i = 0; i < settings.UsedServices; ++i)
    for (int k = 0; k < settings.UsedServices; ++k) {
      const std::string name = "FlexRate2" + std::to_string(i + 1);
      const ServiceRecord &second = settings.Services[i], &first = settings.Services[k];
      if (name != "FlexRate" + std::to_string(k + 1)) continue;
      if (second.ServiceOption != ServiceRecord::FlexibleRate &&
          first.ServiceOption != ServiceRecord::FlexibleRate)
        continue;
      findings.push_back({FindingKind::NameClash, ServiceNameOf(second), 0, std::nullopt,
                          "The second rate of " + ServiceNameOf(second) + " and the first of " +
                              ServiceNameOf(first) + " are both stored as " + name +
                              ": a program that does not know " + OwnNameBeside(name).value_or(name) +
                              " charges long use of " + ServiceNameOf(second) + " by the rate of " +
                              ServiceNameOf(first) + "."});
    }
}

}  // namespace

const char* NameOf(FindingKind kind) {
  constexpr const char* names[] = {"gap",           "unreached",    "runs-over",  "range",  "no-cost",
                                   "shared-number", "past-holiday", "name-clash", "markers"};
  return names[static_cast<int>(kind)];
}

const char* DayName(int day) {
  constexpr const char* names[DayCount] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun", "Holiday"};
  return names[day];
}

std::string DaysInWords(DaySet days) {
  std::vector<std::string> words;
  for (int day = 0; day < HolidayBit; ++day) {
    int last = day;
    while (last < HolidayBit && days >> last & 1) ++last;
    if (last - day >= 3) {
      words.push_back(std::string(DayName(day)) + " to " + DayName(last - 1));
      day = last;
    } else if (last > day) {
      words.emplace_back(DayName(day));
    }
  }
  if ((days & Week) == Week) return "every day";
  if (days >> HolidayBit & 1) words.emplace_back("holidays");
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i)
    text += (i == 0 ? "" : i + 1 == words.size() ? " and " : ", ") + words[i];
  return text;
}

std::string ClockText(int minute) {
  const auto twoDigits = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  return twoDigits(minute / 60) + ":" + twoDigits(minute % 60);
}

std::vector<Finding> CheckSettings(const Settings& settings, Date today) {
  std::vector<Finding> findings;
  for (int i = 0; i < settings.UsedServices; ++i) {
    const ServiceRecord& service = settings.Services[i];
    std::ranges::move(CheckTariffs(settings, service, today), std::back_inserter(findings));
    FindNoCost(service, findings);
    FindSharedNumbers(settings, i, findings);
  }
  FindPastHolidays(settings, today, findings);
  FindNameClashes(settings, findings);
  return findings;
}

}  // namespace qel
