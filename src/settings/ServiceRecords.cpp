#include "settings/ServiceRecords.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "settings/Settings.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

BoundedArray<ServiceRecord> Services;
std::string WarningSoundFile;
BoundedArray<Date> Holidays;
Int16 UsedHolidays;

namespace {

const std::string GeneralKey = std::string(SettingsKey) + "\\General";
const std::string ServicesKey = std::string(SettingsKey) + "\\Services";
const std::string HolidaysKey = std::string(SettingsKey) + "\\Holidays";

template <class Record>
struct RecordField {
  const char* Name;
  StoredAs As;
  std::variant<std::string Record::*, Int16 Record::*, Int32 Record::*, double Record::*, bool Record::*>
      Member;
  const char* WriteName = nullptr;  // where it is not Name
  // Where another value has this one's name: the digits before the number of the service that it belongs to.
  const char* RivalDigits = nullptr;
};

template <class Record>
SettingPlace PlaceOf(Record& record, const RecordField<Record>& field) {
  return std::visit([&record](auto member) { return SettingPlace(&(record.*member)); }, field.Member);
}

using S = ServiceRecord;
using T = TariffRecord;

// UsedTariffs comes last of the first group: the tariffs behind it need the count.
const RecordField<S> DialFields[] = {
    {"ServiceName", StoredAs::Text, &S::ServiceName},
    {"ServiceNumber", StoredAs::Text, &S::ServiceNumber},
    {"ServiceAltNumber", StoredAs::Text, &S::ServiceAltNumber},
    {"DialOption", StoredAs::Whole, &S::DialOption},
    {"DialFixedTariff", StoredAs::Money, &S::DialFixedTariff},
    {"UsedTariffs", StoredAs::Whole, &S::UsedTariffs},
};

const RecordField<T> TariffFields[] = {
    {"After", StoredAs::Whole, &T::After},
    {"AppliesDays", StoredAs::Text, &T::AppliesDays},
    {"AppliesTimeEnd", StoredAs::Clock, &T::AppliesTimeEnd},
    {"AppliesTimeStart", StoredAs::Clock, &T::AppliesTimeStart},
    {"Description", StoredAs::Text, &T::Description},
    {"DialRate", StoredAs::Money, &T::DialRate},
    {"PerMinuteRate", StoredAs::Money, &T::PerMinuteRate},
    {"Unit", StoredAs::Text, &T::Unit},
    {"UnitMins", StoredAs::Whole, &T::UnitMins},
    {"UnitSecs", StoredAs::Whole, &T::UnitSecs},
};

const RecordField<S> CostFields[] = {
    {"ServiceRate", StoredAs::Money, &S::ServiceRate},
    {"ServiceOption", StoredAs::Whole, &S::ServiceOption},
    {"AfterMeg", StoredAs::Whole, &S::AfterMeg},
    {"PerMeg", StoredAs::Money, &S::PerMeg},
    {"MegPeriod", StoredAs::Text, &S::MegPeriod},
    {"Block", StoredAs::Whole, &S::Block},
    {"MaxCharge", StoredAs::Money, &S::MaxCharge},
    {"FlexRate", StoredAs::Money, &S::FlexRate},
    // The second rate of service 1 and the first one of service 21 are both FlexRate21, and so on. No other
    // field ends in a digit.
    {"FlexRate2", StoredAs::Money, &S::FlexRate2, nullptr, "2"},
    {"PenaltyPeriod", StoredAs::Text, &S::PenaltyPeriod},
    {"UpToHours", StoredAs::Whole, &S::UpToHours},
    {"FreePeriod", StoredAs::Whole, &S::FreePeriod},
    {"FreeStart", StoredAs::Clock, &S::FreeStart},
    {"FreeEnd", StoredAs::Clock, &S::FreeEnd},
    {"ShowWarnings", StoredAs::Whole, &S::ShowWarnings},
    {"WarningOption", StoredAs::Whole, &S::WarningOption},
    {"WarningHours", StoredAs::Whole, &S::WarningHours},
    {"WarningMinutes", StoredAs::Whole, &S::WarningMinutes},
    {"WarningDialup", StoredAs::Money, &S::WarningDialup},
    {"WarningService", StoredAs::Money, &S::WarningService},
    {"WarningData", StoredAs::Whole, &S::WarningData, "Warningdata"},  // names compare without regard to case
    {"WarningDisplay", StoredAs::Whole, &S::WarningDisplay},
    {"WarningSound", StoredAs::Whole, &S::WarningSound},
};

constexpr char OwnMark[] = "-";  // which stands between no other field's name and a number

// The name that a value has besides: a name that belongs to two values goes to the later service, as it
// always did, and the other value stands under this one.
std::string OwnName(const char* field, std::string_view number) {
  return std::string(field) + OwnMark + std::string(number);
}

// Whether one of `count` services takes the name of this value of service `number`.
template <class Record>
bool IsTaken(const RecordField<Record>& field, const std::string& number, int count) {
  return field.RivalDigits && std::stoi(field.RivalDigits + number) <= count;
}

bool IsStored(const std::string& key, const std::string& name) {
  return QueryValue(SettingsRoot, key, name).index() != 0;
}

// One record among `count` services: its names are those of the fields between `before` and `behind`.
template <class Record, std::size_t N>
void ReadFields(const RecordField<Record> (&fields)[N], Record& record, const std::string& before,
                const std::string& behind, int count) {
  for (const auto& field : fields) {
    std::string name = before + field.Name + behind;
    if (const std::string own = OwnName(field.Name, behind);
        IsTaken(field, behind, count) && IsStored(ServicesKey, own))
      name = own;
    Attempt([&] { LoadSetting(ServicesKey, name, field.As, PlaceOf(record, field)); });
  }
}

template <class Record, std::size_t N>
void WriteFields(const RecordField<Record> (&fields)[N], Record& record, const std::string& before,
                 const std::string& behind, int count) {
  for (const auto& field : fields) {
    std::string name = before + (field.WriteName ? field.WriteName : field.Name) + behind;
    if (IsTaken(field, behind, count))
      name = OwnName(field.Name, behind);
    else if (field.RivalDigits)
      Registry.DeleteValue(KeyPath(SettingsRoot, ServicesKey), OwnName(field.Name, behind));
    Attempt([&] { StoreSetting(ServicesKey, name, field.As, PlaceOf(record, field)); });
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
Counts CountsOf(const std::string& key, const std::string& name) {
  const auto [ours, now] = Registry.VersionsOf(KeyPath(SettingsRoot, key), name);
  const auto number = [](const RegistryValue* stored) {
    return stored && stored->Type == REG_DWORD ? static_cast<std::int32_t>(DwordOf(stored->Data)) : 0;
  };
  return {number(ours), number(now)};
}

// A record of its own for the places, which nobody reads from or writes to.
template <class Record, std::size_t N>
std::optional<SettingForm> FormIn(const RecordField<Record> (&fields)[N], std::string_view name,
                                  bool (*matches)(std::string_view name, std::string_view field)) {
  static Record record;
  for (const auto& field : fields)
    if (matches(name, field.Name)) return SettingForm{field.As, PlaceOf(record, field)};
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
Counts ServiceCounts() {
  Counts counts = CountsOf(GeneralKey, "UsedServices");
  for (int* count : {&counts.Before, &counts.Now})
    if (*count > std::numeric_limits<std::int16_t>::max()) *count = 0;
  return counts;
}

// Other programs that change the number of services move the sound to another name.
void FollowSound(const Counts& counts) {
  const auto ours =
      Registry.VersionsOf(KeyPath(SettingsRoot, ServicesKey), SoundFileName(counts.Before)).Ours;
  const bool changed = WarningSoundFile != (ours ? TextOf(Decoded(*ours).value()) : "");
  if (counts.Now == counts.Before || changed) return;
  LoadSetting(ServicesKey, SoundFileName(counts.Now), StoredAs::Text, &WarningSoundFile);
}

void ReadService(ServiceRecord& service, int number, int count) {
  const std::string behind = std::to_string(number);
  TraceStep("Read Dial Costs");
  ReadFields(DialFields, service, "", behind, count);
  TraceStep("Read Tariffs");
  ReadUsed(
      service.Tariffs, service.UsedTariffs,
      [&](TariffRecord& tariff, int k) {
        ReadFields(TariffFields, tariff, TariffPrefix(number, k), "", count);
      },
      [&](int k) { return IsStored(ServicesKey, TariffPrefix(number, k) + TariffFields[0].Name); });
  TraceStep("ReadService Costs");
  ReadFields(CostFields, service, "", behind, count);
}

void WriteService(ServiceRecord& service, int number, int count) {
  const std::string behind = std::to_string(number);
  ServiceRecord counted = service;  // with the tariffs that found no room
  counted.UsedTariffs = StoredCount(service.Tariffs, service.UsedTariffs);
  TraceStep("Write Dial Costs");
  WriteFields(DialFields, counted, "", behind, count);
  TraceStep("Write Tariffs");
  WriteUsed(service.Tariffs, service.UsedTariffs, [&](TariffRecord& tariff, int k) {
    WriteFields(TariffFields, tariff, TariffPrefix(number, k), "", count);
  });
  TraceStep("Write Service Costs");
  WriteFields(CostFields, service, "", behind, count);
}

bool CallCosts(const ServiceRecord& service) {
  if (service.DialOption == 1) return service.DialFixedTariff != 0;
  bool costs = false;
  for (int i = 0; service.DialOption == 2 && i < service.UsedTariffs; ++i)
    costs = costs || service.Tariffs[i].DialRate != 0 || service.Tariffs[i].PerMinuteRate != 0;
  return costs;
}

bool TimeCosts(const ServiceRecord& service) {
  if (service.ServiceOption == 1) return service.ServiceRate != 0;
  return service.ServiceOption == 2 && (service.FlexRate != 0 || service.FlexRate2 != 0);
}

}  // namespace

bool CostsNothing(const ServiceRecord& service) {
  return !CallCosts(service) && !TimeCosts(service) && service.PerMeg == 0;
}

void ResetServiceRecords() {
  Services = {};
  UsedServices = 0;
  WarningSoundFile.clear();
  Holidays.Make(MaxHolidays - 1);
  UsedHolidays = 0;
}

void ReadServices() {
  const int count = UsedServices;
  ReadUsed(
      Services, UsedServices,
      [count](ServiceRecord& service, int number) { ReadService(service, number, count); },
      [](int number) { return IsStored(ServicesKey, "ServiceName" + std::to_string(number)); });
  LoadSetting(ServicesKey, SoundFileName(StoredServiceCount()), StoredAs::Text, &WarningSoundFile);
}

// The count that stands in the store governs: another program may have changed it where this one did not.
void WriteServices() {
  const int count = ServiceCounts().Now;
  WriteUsed(Services, UsedServices, [count](ServiceRecord& service, int number) {
    if (number <= count) WriteService(service, number, count);
  });
  StoreSetting(ServicesKey, SoundFileName(count), StoredAs::Text, &WarningSoundFile);
}

void MergeServices() {
  const auto [before, now] = ServiceCounts();
  FollowSound({before, now});
  std::vector<ServiceRecord> all = AllOf(Services, UsedServices);
  if (now <= before || static_cast<int>(all.size()) == before) return;
  std::vector<ServiceRecord> added;
  for (int number = before + 1;
       number <= now && IsStored(ServicesKey, "ServiceName" + std::to_string(number)); ++number)
    ReadService(added.emplace_back(), number, now);
  static_cast<void>(
      IsStored(GeneralKey, "UsedServices"));  // known from here: the sum may be what it was before
  const std::size_t kept = std::min(all.size(), static_cast<std::size_t>(before));
  all.insert(all.begin() + static_cast<std::ptrdiff_t>(kept), added.begin(), added.end());
  Spread(all, Services, UsedServices);
}

Int16 StoredServiceCount() { return StoredCount(Services, UsedServices); }

void ReadHolidays() {
  Attempt([] { LoadSetting(HolidaysKey, "UsedHolidays", StoredAs::Whole, &UsedHolidays); });
  const auto read = [](Date& holiday, int number) {
    Attempt([&] { LoadSetting(HolidaysKey, Str(number), StoredAs::Whole, &holiday); });
  };
  ReadUsed(Holidays, UsedHolidays, read, [](int number) { return IsStored(HolidaysKey, Str(number)); });
}

void MergeHolidays() {
  if (!Registry.ChangedElsewhere(KeyPath(SettingsRoot, HolidaysKey))) return;
  const std::vector<Date> ours = AllOf(Holidays, UsedHolidays);
  std::vector<Date> before;
  const int count = CountsOf(HolidaysKey, "UsedHolidays").Before;
  for (int number = 1; number <= count; ++number) before.push_back(CountsOf(HolidaysKey, Str(number)).Before);
  if (ours == before) return;
  ReadHolidays();
  std::vector<Date> all = AllOf(Holidays, UsedHolidays);
  const auto holds = [](const std::vector<Date>& days, Date day) {
    return std::ranges::find(days, day) != days.end();
  };
  std::erase_if(all, [&](Date day) { return holds(before, day) && !holds(ours, day); });
  for (const Date day : ours)
    if (!holds(before, day) && !holds(all, day)) all.push_back(day);
  std::ranges::sort(all);
  Spread(all, Holidays, UsedHolidays);
}

void WriteHolidays() {
  Int16 count = StoredCount(Holidays, UsedHolidays);
  StoreSetting(HolidaysKey, "UsedHolidays", StoredAs::Whole, &count);
  WriteUsed(Holidays, UsedHolidays, [](Date& holiday, int number) {
    Attempt([&] { StoreSetting(HolidaysKey, Str(number), StoredAs::Whole, &holiday); });
  });
}

std::optional<SettingForm> FormOfService(std::string_view name) {
  if (IsNumbered(name, "WarningSoundFile")) return SettingForm{StoredAs::Text, &WarningSoundFile};
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
  static Date holiday;
  if (EqualNoCase(name, "UsedHolidays")) return SettingForm{StoredAs::Whole, &UsedHolidays};
  if (IsNumbered(name, " ")) return SettingForm{StoredAs::Whole, &holiday};
  return std::nullopt;
}

}  // namespace qel
