#include "settings/ServiceStore.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "settings/SettingRow.h"
#include "settings/StoredValues.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

const std::string GeneralKey = std::string(SettingsKey) + "\\General";
const std::string ServicesKey = std::string(SettingsKey) + "\\Services";
const std::string HolidaysKey = std::string(SettingsKey) + "\\Holidays";

using S = ServiceRecord;
using T = TariffRecord;

SettingRow<S> WithRival(SettingRow<S> row, const char* digits) {
  row.RivalDigits = digits;
  return row;
}

SettingRow<S> WrittenAs(SettingRow<S> row, const char* name) {
  row.WriteName = name;
  return row;
}

// UsedTariffs comes last of the first group: the tariffs behind it need the count.
const SettingRow<S> DialFields[] = {
    Row<&S::ServiceName>("ServiceName", StoredAs::Text),
    Row<&S::ServiceNumber>("ServiceNumber", StoredAs::Text),
    Row<&S::ServiceAltNumber>("ServiceAltNumber", StoredAs::Text),
    Row<&S::DialOption>("DialOption", StoredAs::Whole),
    Row<&S::DialFixedTariff>("DialFixedTariff", StoredAs::Money),
    Row<&S::UsedTariffs>("UsedTariffs", StoredAs::Whole),
};

const SettingRow<T> TariffFields[] = {
    Row<&T::After>("After", StoredAs::Whole),
    Row<&T::AppliesDays>("AppliesDays", StoredAs::Text),
    Row<&T::AppliesTimeEnd>("AppliesTimeEnd", StoredAs::Clock),
    Row<&T::AppliesTimeStart>("AppliesTimeStart", StoredAs::Clock),
    Row<&T::Description>("Description", StoredAs::Text),
    Row<&T::DialRate>("DialRate", StoredAs::Money),
    Row<&T::PerMinuteRate>("PerMinuteRate", StoredAs::Money),
    Row<&T::Unit>("Unit", StoredAs::Text),
    Row<&T::UnitMins>("UnitMins", StoredAs::Whole),
    Row<&T::UnitSecs>("UnitSecs", StoredAs::Whole),
};

const SettingRow<S> CostFields[] = {
    Row<&S::ServiceRate>("ServiceRate", StoredAs::Money),
    Row<&S::ServiceOption>("ServiceOption", StoredAs::Whole),
    Row<&S::AfterMeg>("AfterMeg", StoredAs::Whole),
    Row<&S::PerMeg>("PerMeg", StoredAs::Money),
    Row<&S::MegPeriod>("MegPeriod", StoredAs::Text),
    Row<&S::Block>("Block", StoredAs::Whole),
    Row<&S::MaxCharge>("MaxCharge", StoredAs::Money),
    Row<&S::FlexRate>("FlexRate", StoredAs::Money),
    // The second rate of service 1 and the first one of service 21 are both FlexRate21, and so on. No other
    // field ends in a digit.
    WithRival(Row<&S::FlexRate2>("FlexRate2", StoredAs::Money), "2"),
    Row<&S::PenaltyPeriod>("PenaltyPeriod", StoredAs::Text),
    Row<&S::UpToHours>("UpToHours", StoredAs::Whole),
    Row<&S::FreePeriod>("FreePeriod", StoredAs::Whole),
    Row<&S::FreeStart>("FreeStart", StoredAs::Clock),
    Row<&S::FreeEnd>("FreeEnd", StoredAs::Clock),
    Row<&S::ShowWarnings>("ShowWarnings", StoredAs::Whole),
    Row<&S::WarningOption>("WarningOption", StoredAs::Whole),
    Row<&S::WarningHours>("WarningHours", StoredAs::Whole),
    Row<&S::WarningMinutes>("WarningMinutes", StoredAs::Whole),
    Row<&S::WarningDialup>("WarningDialup", StoredAs::Money),
    Row<&S::WarningService>("WarningService", StoredAs::Money),
    WrittenAs(Row<&S::WarningData>("WarningData", StoredAs::Whole),
              "Warningdata"),  // names compare without regard to case
    Row<&S::WarningDisplay>("WarningDisplay", StoredAs::Whole),
    Row<&S::WarningSound>("WarningSound", StoredAs::Whole),
};

constexpr char OwnMark[] = "-";  // which stands between no other field's name and a number

// The name that a value has besides: a name that belongs to two values goes to the later service, as it
// always did, and the other value stands under this one.
std::string OwnName(const char* field, std::string_view number) {
  return std::string(field) + OwnMark + std::string(number);
}

// Whether one of `count` services takes the name of this value of service `number`.
template <class Record>
bool IsTaken(const SettingRow<Record>& field, const std::string& number, int count) {
  return field.RivalDigits && std::stoi(field.RivalDigits + number) <= count;
}

bool IsStored(const RegistryStore& store, const std::string& key, const std::string& name) {
  return QueryValue(store, SettingsRoot, key, name).index() != 0;
}

// One record among `count` services: its names are those of the fields between `before` and `behind`.
template <class Record, std::size_t N>
void ReadFields(RegistryStore& store, const SettingRow<Record> (&fields)[N], Record& record,
                const std::string& before, const std::string& behind, int count) {
  for (const auto& field : fields) {
    std::string name = before + field.Name + behind;
    if (const std::string own = OwnName(field.Name, behind);
        IsTaken(field, behind, count) && IsStored(store, ServicesKey, own))
      name = own;
    Attempt([&] { LoadSetting(store, ServicesKey, name, field.As, field.PlaceIn(record)); });
  }
}

template <class Record, std::size_t N>
void WriteFields(RegistryStore& store, const SettingRow<Record> (&fields)[N], Record& record,
                 const std::string& before, const std::string& behind, int count) {
  for (const auto& field : fields) {
    std::string name = before + (field.WriteName ? field.WriteName : field.Name) + behind;
    if (IsTaken(field, behind, count))
      name = OwnName(field.Name, behind);
    else if (field.RivalDigits)
      store.DeleteValue(KeyPath(SettingsRoot, ServicesKey), OwnName(field.Name, behind));
    Attempt([&] { StoreSetting(store, ServicesKey, name, field.As, field.PlaceIn(record)); });
  }
}

std::string TariffPrefix(int service, int tariff) {
  return "Tariff" + std::to_string(service) + "-" + std::to_string(tariff);
}

// Reads the elements in use. Where the count runs past the array the error handler hears of it once, and the
// count becomes what there is room for, so that readers can rely on it. The rest is read beyond the array as
// far as it `exists`.
template <typename Record, typename Read, typename Exists>
void ReadUsed(BoundedArray<Record>& array, Int16& used, Read read, Exists exists) {
  array.Beyond.clear();
  const int stored = used, room = array.Last() + 1;
  for (int i = 0; i < std::min(stored, room); ++i) read(array[i], i + 1);
  if (stored <= room) return;
  Attempt([&] { static_cast<void>(array[room]); });
  used = Int16(room);
  for (int number = room + 1; number <= stored && exists(number); ++number)
    read(array.Beyond.emplace_back(), number);
}

// Writes the elements in use, and behind them those that found no room.
template <typename Record, typename Write>
void WriteUsed(BoundedArray<Record>& array, Int16 used, Write write) {
  for (int i = 0; i < used; ++i) write(array[i], i + 1);
  for (std::size_t i = 0; i < array.Beyond.size(); ++i)
    write(array.Beyond[i], used + static_cast<int>(i) + 1);
}

template <typename Record>
Int16 StoredCount(const BoundedArray<Record>& array, Int16 used) {
  return Int16(used + static_cast<int>(array.Beyond.size()));
}

// The elements in use, and those that found no room.
template <typename Record>
std::vector<Record> AllOf(const BoundedArray<Record>& array, Int16 used) {
  std::vector<Record> all;
  for (int i = 0; i < std::min<int>(used, array.Last() + 1); ++i) all.push_back(array[i]);
  all.insert(all.end(), array.Beyond.begin(), array.Beyond.end());
  return all;
}

template <typename Record>
void Spread(const std::vector<Record>& all, BoundedArray<Record>& array, Int16& used) {
  const std::size_t room = std::min(all.size(), static_cast<std::size_t>(array.Last() + 1));
  for (std::size_t i = 0; i < room; ++i) array[static_cast<int>(i)] = all[i];
  array.Beyond.assign(all.begin() + static_cast<std::ptrdiff_t>(room), all.end());
  used = Int16(static_cast<int>(room));
}

// A stored number as this program last read or wrote it, and as it stands now; 0 where there is none.
struct Counts {
  int Before, Now;
};
Counts CountsOf(const RegistryStore& store, const std::string& key, const std::string& name) {
  const auto [ours, now] = store.VersionsOf(KeyPath(SettingsRoot, key), name);
  const auto number = [](const RegistryValue* stored) {
    return stored && stored->Type == REG_DWORD ? static_cast<std::int32_t>(DwordOf(stored->Data)) : 0;
  };
  return {number(ours), number(now)};
}

template <class Record, std::size_t N>
std::optional<SettingForm> FormIn(const SettingRow<Record> (&fields)[N], std::string_view name,
                                  bool (*matches)(std::string_view name, std::string_view field)) {
  for (const auto& field : fields)
    if (matches(name, field.Name)) return FormOf(field);
  return std::nullopt;
}

// "FlexRate1", or under a name of its own "FlexRate2-1".
bool IsOfService(std::string_view name, std::string_view field) {
  return IsNumbered(name, field) || IsNumbered(name, std::string(field) + OwnMark);
}

// "Tariff1-2After" for the field "After".
bool IsOfTariff(std::string_view name, std::string_view field) {
  if (name.size() <= field.size()) return false;
  const std::size_t length = name.size() - field.size();
  const std::string_view prefix = name.substr(0, length), numbers = prefix.substr(0, prefix.rfind('-'));
  return EqualNoCase(name.substr(length), field) && IsNumbered(numbers, "Tariff") &&
         IsNumbered(prefix.substr(numbers.size()), "-");
}

// The number comes from the loop over the services, which ends one past the last.
std::string SoundFileName(int services) { return "WarningSoundFile" + std::to_string(services + 1); }

// What no program could read is no count.
Counts ServiceCounts(const RegistryStore& store) {
  Counts counts = CountsOf(store, GeneralKey, "UsedServices");
  for (int* count : {&counts.Before, &counts.Now})
    if (*count > std::numeric_limits<std::int16_t>::max()) *count = 0;
  return counts;
}

// Other programs that change the number of services move the sound to another name.
void FollowSound(RegistryStore& store, std::string& sound, const Counts& counts) {
  const auto ours = store.VersionsOf(KeyPath(SettingsRoot, ServicesKey), SoundFileName(counts.Before)).Ours;
  const bool changed = sound != (ours ? TextOf(Decoded(*ours).value()) : "");
  if (counts.Now == counts.Before || changed) return;
  LoadSetting(store, ServicesKey, SoundFileName(counts.Now), StoredAs::Text, &sound);
}

void ReadService(RegistryStore& store, ServiceRecord& service, int number, int count) {
  const std::string behind = std::to_string(number);
  TraceStep("Read Dial Costs");
  ReadFields(store, DialFields, service, "", behind, count);
  TraceStep("Read Tariffs");
  ReadUsed(
      service.Tariffs, service.UsedTariffs,
      [&](TariffRecord& tariff, int k) {
        ReadFields(store, TariffFields, tariff, TariffPrefix(number, k), "", count);
      },
      [&](int k) { return IsStored(store, ServicesKey, TariffPrefix(number, k) + TariffFields[0].Name); });
  TraceStep("ReadService Costs");
  ReadFields(store, CostFields, service, "", behind, count);
}

void WriteService(RegistryStore& store, ServiceRecord& service, int number, int count) {
  const std::string behind = std::to_string(number);
  ServiceRecord counted = service;  // with the tariffs that found no room
  counted.UsedTariffs = StoredCount(service.Tariffs, service.UsedTariffs);
  TraceStep("Write Dial Costs");
  WriteFields(store, DialFields, counted, "", behind, count);
  TraceStep("Write Tariffs");
  WriteUsed(service.Tariffs, service.UsedTariffs, [&](TariffRecord& tariff, int k) {
    WriteFields(store, TariffFields, tariff, TariffPrefix(number, k), "", count);
  });
  TraceStep("Write Service Costs");
  WriteFields(store, CostFields, service, "", behind, count);
}

}  // namespace

void ReadServices(RegistryStore& store, Settings& settings) {
  const int count = settings.UsedServices;
  ReadUsed(
      settings.Services, settings.UsedServices,
      [&](ServiceRecord& service, int number) { ReadService(store, service, number, count); },
      [&](int number) { return IsStored(store, ServicesKey, "ServiceName" + std::to_string(number)); });
  const std::string name = SoundFileName(StoredServiceCount(settings));
  LoadSetting(store, ServicesKey, name, StoredAs::Text, &settings.WarningSoundFile);
}

// The count that stands in the store governs: another program may have changed it where this one did not.
void WriteServices(RegistryStore& store, Settings& settings) {
  const int count = ServiceCounts(store).Now;
  WriteUsed(settings.Services, settings.UsedServices, [&](ServiceRecord& service, int number) {
    if (number <= count) WriteService(store, service, number, count);
  });
  StoreSetting(store, ServicesKey, SoundFileName(count), StoredAs::Text, &settings.WarningSoundFile);
}

void MergeServices(RegistryStore& store, Settings& settings) {
  const auto [before, now] = ServiceCounts(store);
  FollowSound(store, settings.WarningSoundFile, {before, now});
  std::vector<ServiceRecord> all = AllOf(settings.Services, settings.UsedServices);
  if (now <= before || static_cast<int>(all.size()) == before) return;
  std::vector<ServiceRecord> added;
  for (int number = before + 1;
       number <= now && IsStored(store, ServicesKey, "ServiceName" + std::to_string(number)); ++number)
    ReadService(store, added.emplace_back(), number, now);
  static_cast<void>(
      IsStored(store, GeneralKey, "UsedServices"));  // known from here: the sum may be what it was before
  const std::size_t kept = std::min(all.size(), static_cast<std::size_t>(before));
  all.insert(all.begin() + static_cast<std::ptrdiff_t>(kept), added.begin(), added.end());
  Spread(all, settings.Services, settings.UsedServices);
}

Int16 StoredServiceCount(const Settings& settings) {
  return StoredCount(settings.Services, settings.UsedServices);
}

void ReadHolidays(RegistryStore& store, Settings& settings) {
  Attempt([&] { LoadSetting(store, HolidaysKey, "UsedHolidays", StoredAs::Whole, &settings.UsedHolidays); });
  const auto read = [&](Date& holiday, int number) {
    Attempt([&] { LoadSetting(store, HolidaysKey, Str(number), StoredAs::Whole, &holiday); });
  };
  ReadUsed(settings.Holidays, settings.UsedHolidays, read,
           [&](int number) { return IsStored(store, HolidaysKey, Str(number)); });
}

void MergeHolidays(RegistryStore& store, Settings& settings) {
  if (!store.ChangedElsewhere(KeyPath(SettingsRoot, HolidaysKey))) return;
  const std::vector<Date> ours = AllOf(settings.Holidays, settings.UsedHolidays);
  std::vector<Date> before;
  const int count = CountsOf(store, HolidaysKey, "UsedHolidays").Before;
  for (int number = 1; number <= count; ++number)
    before.push_back(CountsOf(store, HolidaysKey, Str(number)).Before);
  if (ours == before) return;
  ReadHolidays(store, settings);
  std::vector<Date> all = AllOf(settings.Holidays, settings.UsedHolidays);
  const auto holds = [](const std::vector<Date>& days, Date day) {
    return std::ranges::find(days, day) != days.end();
  };
  std::erase_if(all, [&](Date day) { return holds(before, day) && !holds(ours, day); });
  for (const Date day : ours)
    if (!holds(before, day) && !holds(all, day)) all.push_back(day);
  std::ranges::sort(all);
  Spread(all, settings.Holidays, settings.UsedHolidays);
}

void WriteHolidays(RegistryStore& store, Settings& settings) {
  Int16 count = StoredCount(settings.Holidays, settings.UsedHolidays);
  StoreSetting(store, HolidaysKey, "UsedHolidays", StoredAs::Whole, &count);
  WriteUsed(settings.Holidays, settings.UsedHolidays, [&](Date& holiday, int number) {
    Attempt([&] { StoreSetting(store, HolidaysKey, Str(number), StoredAs::Whole, &holiday); });
  });
}

std::optional<SettingForm> FormOfService(std::string_view name) {
  if (IsNumbered(name, "WarningSoundFile")) return SettingForm{StoredAs::Text, std::string()};
  if (const auto form = FormIn(DialFields, name, IsNumbered)) return form;
  if (const auto form = FormIn(CostFields, name, IsOfService)) return form;
  return FormIn(TariffFields, name, IsOfTariff);
}

std::optional<std::string> OwnNameBeside(std::string_view name) {
  for (const auto& field : CostFields)
    if (field.RivalDigits && IsNumbered(name, field.Name))
      return OwnName(field.Name, name.substr(std::string_view(field.Name).size()));
  return std::nullopt;
}

std::optional<SettingForm> FormOfHoliday(std::string_view name) {
  if (EqualNoCase(name, "UsedHolidays")) return SettingForm{StoredAs::Whole, Int16()};
  if (IsNumbered(name, " ")) return SettingForm{StoredAs::Whole, Date()};
  return std::nullopt;
}

}  // namespace qel
