// The telephone side of a connection: what the phone company charges for the call.
#pragma once

#include <string>

#include "settings/ServiceRecords.h"
#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

// Cost in the user's currency of a call to `number` inside the reporting period: the service's fixed charge,
// or the sum over the pieces into which its tariffs divide the call; the default charge for an unknown
// number. At each moment the first tariff that holds wins.
//
// A negative result says that the tariffs left a gap behind a priced piece; its magnitude is what was priced.
// `index` is the connection whose Notes get the tariffs' names and units, 0 for none. Raises 6 for more units
// than 16 bits hold, 9 for a tariff count beyond the array.
double GetDialupCost(const std::string& number, Date startDate, Date startTime, Date endDate, Date endTime,
                     Int16 index);

// Cost of `seconds` in one tariff, its charge per call apart. The first piece of a call is spared the
// tariff's allowance, unless it is charged by units; begun units are paid whole, and `units` tells how many
// there were.
double GetSegmentCost(const TariffRecord& tariff, Int32 seconds, bool firstPiece, Int16& units);

}  // namespace qel
