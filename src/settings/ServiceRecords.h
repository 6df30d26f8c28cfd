// The pricing model: services with their tariffs, and holidays.
// Money is in the user's currency, times of day are fractions of a day.
#pragma once

#include <string>

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
  static constexpr int FixedCharge = 1, ByTariffs = 2;
  Int16 DialOption = 0;  // FixedCharge: DialFixedTariff per call; ByTariffs: Tariffs
  double DialFixedTariff = 0;
  BoundedArray<TariffRecord> Tariffs;  // 0 to 9, the first UsedTariffs in use; their order is their priority
  Int16 UsedTariffs = 0;
  static constexpr int FlatRate = 1, FlexibleRate = 2;
  Int16 ServiceOption = 0;  // FlatRate: ServiceRate; FlexibleRate: FlexRate up to UpToHours, then FlexRate2
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

// As people read it: without blanks around it.
std::string ServiceNameOf(const ServiceRecord& service);

// Whether nothing that happens with the service is charged: no call, no time on line, no data.
bool CostsNothing(const ServiceRecord& service);

}  // namespace qel
