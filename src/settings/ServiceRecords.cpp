#include "settings/ServiceRecords.h"

#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "platform/CodePage.h"
#include "platform/TextConversion.h"
#include "settings/Settings.h"

namespace qel {

BoundedArray<ServiceRecord> Services;
std::string WarningSoundFile;
BoundedArray<Date> Holidays;
Int16 UsedHolidays;

namespace {

const std::string ServicesKey = std::string(SettingsKey) + "\\Services";
const std::string HolidaysKey = std::string(SettingsKey) + "\\Holidays";

template <class Record>
struct RecordField {
  const char* Name;
  StoredAs As;
  std::variant<std::string Record::*, Int16 Record::*, Int32 Record::*, double Record::*, bool Record::*>
      Member;
  const char* WriteName = nullptr;  // where it is not Name
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
    {"FlexRate2", StoredAs::Money, &S::FlexRate2},
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

template <class Record, std::size_t N>
void ReadFields(const RecordField<Record> (&fields)[N], Record& record, const std::string& before,
                const std::string& behind) {
  for (const auto& field : fields)
    Attempt(
        [&] { LoadSetting(ServicesKey, before + field.Name + behind, field.As, PlaceOf(record, field)); });
}

template <class Record, std::size_t N>
void WriteFields(const RecordField<Record> (&fields)[N], Record& record, const std::string& before,
                 const std::string& behind) {
  for (const auto& field : fields) {
    const char* name = field.WriteName ? field.WriteName : field.Name;
    Attempt([&] { StoreSetting(ServicesKey, before + name + behind, field.As, PlaceOf(record, field)); });
  }
}

std::string TariffPrefix(int service, int tariff) {
  return "Tariff" + std::to_string(service) + "-" + std::to_string(tariff);
}

// Visits the first `used` elements. Where the count runs past the array the error handler hears of it, and
// the count becomes what there is, so that readers can rely on it.
template <typename Record, typename Visit>
void ForEachUsed(BoundedArray<Record>& array, Int16& used, Visit visit) {
  for (int i = 0; i < used; ++i) {
    Record* record = nullptr;
    if (!Attempt([&] { record = &array[i]; })) {
      used = Int16(array.Last() + 1);
      return;
    }
    visit(*record, i + 1);
  }
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

// "Tariff1-2After" for the field "After".
bool IsOfTariff(std::string_view name, std::string_view field) {
  if (name.size() <= field.size()) return false;
  const std::size_t length = name.size() - field.size();
  const std::string_view prefix = name.substr(0, length), numbers = prefix.substr(0, prefix.rfind('-'));
  return EqualNoCase(name.substr(length), field) && IsNumbered(numbers, "Tariff") &&
         IsNumbered(prefix.substr(numbers.size()), "-");
}

// The number comes from the loop over the services, which ends one past the last.
std::string SoundFileName() { return "WarningSoundFile" + std::to_string(UsedServices + 1); }

}  // namespace

void ResetServiceRecords() {
  Services = {};
  UsedServices = 0;
  WarningSoundFile.clear();
  Holidays.Make(MaxHolidays - 1);
  UsedHolidays = 0;
}

void ReadServices() {
  ForEachUsed(Services, UsedServices, [](ServiceRecord& service, int number) {
    StepTrace = "Read Dial Costs";
    ReadFields(DialFields, service, "", std::to_string(number));
    StepTrace = "Read Tariffs";
    ForEachUsed(service.Tariffs, service.UsedTariffs, [number](TariffRecord& tariff, int tariffNumber) {
      ReadFields(TariffFields, tariff, TariffPrefix(number, tariffNumber), "");
    });
    StepTrace = "ReadService Costs";
    ReadFields(CostFields, service, "", std::to_string(number));
  });
  Attempt([] { LoadSetting(ServicesKey, SoundFileName(), StoredAs::Text, &WarningSoundFile); });
}

void WriteServices() {
  ForEachUsed(Services, UsedServices, [](ServiceRecord& service, int number) {
    StepTrace = "Write Dial Costs";
    WriteFields(DialFields, service, "", std::to_string(number));
    StepTrace = "Write Tariffs";
    ForEachUsed(service.Tariffs, service.UsedTariffs, [number](TariffRecord& tariff, int tariffNumber) {
      WriteFields(TariffFields, tariff, TariffPrefix(number, tariffNumber), "");
    });
    StepTrace = "Write Service Costs";
    WriteFields(CostFields, service, "", std::to_string(number));
  });
  Attempt([] { StoreSetting(ServicesKey, SoundFileName(), StoredAs::Text, &WarningSoundFile); });
}

void ReadHolidays() {
  Attempt([] { LoadSetting(HolidaysKey, "UsedHolidays", StoredAs::Whole, &UsedHolidays); });
  ForEachUsed(Holidays, UsedHolidays, [](Date& holiday, int number) {
    Attempt([&] { LoadSetting(HolidaysKey, Str(number), StoredAs::Whole, &holiday); });
  });
}

void WriteHolidays() {
  Attempt([] { StoreSetting(HolidaysKey, "UsedHolidays", StoredAs::Whole, &UsedHolidays); });
  ForEachUsed(Holidays, UsedHolidays, [](Date& holiday, int number) {
    Attempt([&] { StoreSetting(HolidaysKey, Str(number), StoredAs::Whole, &holiday); });
  });
}

std::optional<SettingForm> FormOfService(std::string_view name) {
  if (IsNumbered(name, "WarningSoundFile")) return SettingForm{StoredAs::Text, &WarningSoundFile};
  if (const auto form = FormIn(DialFields, name, IsNumbered)) return form;
  if (const auto form = FormIn(CostFields, name, IsNumbered)) return form;
  return FormIn(TariffFields, name, IsOfTariff);
}

std::optional<SettingForm> FormOfHoliday(std::string_view name) {
  static Date holiday;
  if (EqualNoCase(name, "UsedHolidays")) return SettingForm{StoredAs::Whole, &UsedHolidays};
  if (IsNumbered(name, " ")) return SettingForm{StoredAs::Whole, &holiday};
  return std::nullopt;
}

}  // namespace qel
