// The tariffs of a service as the editor lists them: their order, which is also their priority when a call is
// priced, and each of them as text.
#pragma once

#include <string>

#include "controls/ListView.h"
#include "settings/ServiceRecords.h"

namespace qel {

// What a new service starts with: the default cost of a call, at any time.
TariffRecord DefaultTariff(double dialCost);

// Orders the first `count` tariffs: holidays, single days, ranges of days, every day; the same days by their
// starting time. Ranges keep their order among themselves.
//
// `selected`, a row counted from 1, is on the move: each exchange of neighbours takes it to one of the two,
// to the second where it was on the first and else to the first, wherever it was before.
void OrderTariffs(BoundedArray<TariffRecord>& tariffs, int count, Int16& selected);

// Both raise 6 (overflow) for a time outside the years 100 to 9999.
ListRow TariffRow(const TariffRecord& tariff);
std::string TariffSummary(const TariffRecord& tariff);

}  // namespace qel
