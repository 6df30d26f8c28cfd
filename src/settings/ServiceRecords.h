// The pricing model: services with their tariffs, and holidays.
// Money is in the user's currency, times of day are fractions of a day.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/SettingField.h"
#include "values/BoundedArray.h"
#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

inline constexpr int MaxTariffs = 10;
inline constexpr int MaxHolidays = 100;

// A segment of the week and the day with its own telephone rate. The end includes its last minute.
struct TariffRecord {
  std::string Description;
  std::string AppliesDays;  // "Everyday", "Holidays", a long day name, or a range of short ones ("Mon - Fri")
  Date AppliesTimeStart = 0;
  Date AppliesTimeEnd = 0;
  double DialRate = 0;       // per call
  double PerMinuteRate = 0;  // per `Unit`
  Int32 After = 0;           // seconds from the start of the call that the rate spares
  std::string Unit;          // "Per Minute", "Per Second", "Per Unit"
  Int16 UnitMins = 0;        // length of a unit
  Int16 UnitSecs = 0;
};

// One dialled destination.
struct ServiceRecord {
  ServiceRecord() { Tariffs.Make(MaxTariffs - 1); }

  std::string ServiceName;
  std::string ServiceNumber;
  std::string ServiceAltNumber;
  Int16 DialOption = 0;  // 1: DialFixedTariff per call; 2: Tariffs
  double DialFixedTariff = 0;
  BoundedArray<TariffRecord> Tariffs;  // 0 to 9, the first UsedTariffs in use; their order is their priority
  Int16 UsedTariffs = 0;
  Int16 ServiceOption = 0;  // 1: ServiceRate; 2: FlexRate up to UpToHours per PenaltyPeriod, then FlexRate2
  double ServiceRate = 0;   // rates are per hour
  double FlexRate = 0;
  Int16 UpToHours = 0;
  std::string PenaltyPeriod;  // "Day", "Week", "Month"
  double FlexRate2 = 0;
  double PerMeg = 0;      // per megabyte beyond AfterMeg
  double AfterMeg = 0;    // megabytes per MegPeriod; the store keeps whole ones
  std::string MegPeriod;  // "Day", "Week", "Month", "Session"
  Int16 Block = 0;        // minutes that a begun block counts as; 0 for none
  bool FreePeriod = false;
  Date FreeStart = 0;
  Date FreeEnd = 0;
  double MaxCharge = 0;  // of the service cost per connection; 0 for none
  bool ShowWarnings = false;
  Int16 WarningOption = 0;  // 0 time connected, 1 dial-up costs, 2 service costs, 3 data read
  Int16 WarningHours = 0;
  Int16 WarningMinutes = 0;
  double WarningDialup = 0;
  double WarningService = 0;
  Int32 WarningData = 0;  // kilobytes
  bool WarningDisplay = false;
  bool WarningSound = false;
};

extern BoundedArray<ServiceRecord> Services;  // 0 to MaxServices; the first UsedServices in use
extern std::string WarningSoundFile;          // one for all services
extern BoundedArray<Date> Holidays;           // 0 to 99; the first UsedHolidays in use
extern Int16 UsedHolidays;

void ResetServiceRecords();

// Whether nothing that happens with the service is charged: no call, no time on line, no data.
bool CostsNothing(const ServiceRecord& service);

// Load and store the records above by their numbered value names. Part of ReadUserParameters and
// WriteUserParameters; a missing value is empty. A count beyond its array raises 9 to the error handler, and
// becomes what there is room for; the other records are kept beyond the array and stored behind those in it.
void ReadServices();
void ReadHolidays();
void WriteServices();
void WriteHolidays();

// Before storing: where the user has added or removed something here, and other programs have stored more of
// it since, both are kept. Services that others added stay under their numbers, and those added here go
// behind them; holidays come into the order of their dates. What finds no room goes beyond the array.
void MergeServices();
void MergeHolidays();

// UsedServices as it is stored: with the services that found no room.
Int16 StoredServiceCount();

// The unambiguous name of a value whose name ("FlexRate21") the values of two services share; it stands
// beside that name, and counts, where there are so many services. Nothing for any other name.
std::optional<std::string> OwnNameBeside(std::string_view name);

// How the value of a name is stored in the key of the services or of the holidays; nothing for a name that
// stands for no value there.
std::optional<SettingForm> FormOfService(std::string_view name);
std::optional<SettingForm> FormOfHoliday(std::string_view name);

}  // namespace qel
