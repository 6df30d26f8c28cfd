// What a connection costs under some settings, for a report of some period: the telephone's side by tariffs,
// the provider's side by the hour, data by the megabyte. Money is in the user's currency.
//
// The sides are in DialupCost.cpp, ServiceCost.cpp, FreeTime.cpp and DataCost.cpp.
//
// Services charge for what was used in a charging period, so one pricing serves one pass over the
// connections, in their order. `pieces`, where they are asked for, get what a price is made of behind those
// they have; what raises leaves some of them.
#pragma once

#include <string>

#include "analysis/Period.h"
#include "analysis/PricePieces.h"
#include "settings/Settings.h"

namespace qel {

inline constexpr double BytesPerMegabyte = 1048576;

// What one service has used in one charging period.
struct PeriodUsage {
  Int32 Seconds;
  Int32 Bytes;
};

// The running use by service (index into Services) and period number. Raises 9 beyond MaxServices or period
// 100.
class UsageTable {
 public:
  static constexpr int LastPeriod = 100;

  void Make(Int16 lastService);
  PeriodUsage& At(int service, int period) { return byService[service][period]; }

 private:
  BoundedArray<BoundedArray<PeriodUsage>> byService;
};

class Pricing {
 public:
  Pricing(const Settings& settings, const Period& period) : settings(settings), period(period) {}

  // Begins a pass: nothing is used yet. Raises 9 for a MaxServices below 0.
  void Begin() { Penalties.Make(settings.MaxServices); }

  // Cost of a call to `number` inside the period: the service's fixed charge, or the sum over the pieces into
  // which its tariffs divide the call; the default charge for an unknown number. At each moment the first
  // tariff that holds wins.
  //
  // A negative result says that the tariffs left a gap behind a priced piece; its magnitude is what was
  // priced. The pieces sum to it, or to its negative. Raises 6 for more units than 16 bits hold, 9 for a
  // tariff count beyond the array.
  double GetDialupCost(const std::string& number, Date startDate, Date startTime, Date endDate, Date endTime,
                       PricePieces* pieces = nullptr) const;

  // Cost of `seconds` of connected time with the service that owns `number`, on the day that the connection
  // began. A flexible rate adds the seconds to the service's running use of the charging period that holds
  // `date`. Unknown numbers pay the default cost per hour. Negative seconds give a negative cost. Raises 6
  // where a period's seconds exceed 32 bits, 9 beyond period 100.
  double GetServiceCost(const std::string& number, Int32 seconds, Date date, PricePieces* pieces = nullptr);

  // `cost`, or the service's maximum charge per connection where that is less.
  double ApplyMaxCharge(double cost, const std::string& number, PricePieces* pieces = nullptr) const;

  // Cost of `bytes` read in a connection that began on `date`, beyond the service's allowance of megabytes
  // for the charging period; bytes sent are never charged. Adds the bytes to the service's running use.
  // Unknown numbers pay the default cost per megabyte. Raises 6 where a period's bytes exceed 32 bits, 9
  // beyond period 100.
  double GetDataCost(const std::string& number, double bytes, Date date, PricePieces* pieces = nullptr);

  // Seconds of overlap between the free period of the service that owns `number` and the connection from time
  // of day `start` to `stop`. Only times of day are compared: a connection of more than a day yields one
  // day's overlap at most. 0 where there is no service or no free period, and where anything fails.
  Int32 GetFreeSeconds(const std::string& number, Date start, Date stop) const;

  // Minutes that a begun block counts as; 0 for none.
  Int16 ServiceBlockMinutes(const std::string& number) const;

  // The number of the charging period that holds `date`, counted from PeriodStart; at least 0. Windows of
  // fixed length from the first day of the report, not calendar months: "Month" is as long as the month that
  // begins on that day. Raises 6 beyond 16 bits.
  Int16 GetPeriodNumber(Date date, const std::string& periodName) const;

  const Settings& settings;
  const Period& period;
  UsageTable Penalties;

 private:
  const ServiceRecord* ServiceOf(const std::string& number) const;
  double FlexibleCost(Int16 index, Int32 seconds, Date date, PricePieces* pieces);
};

// Blocks begun in `seconds`. Raises 6 beyond 16 bits.
Int16 GetBlockCount(Int16 minutes, Int32 seconds);

}  // namespace qel
