// The drawn part of a page: charts of use and cost, each with its figures in a table that the reader can
// open.
#pragma once

#include <string>

#include "reports/UseByService.h"
#include "reports/UseByTime.h"

namespace qel {

// Markup; empty where there is nothing to draw.
std::string UseOverPeriod(const UseByTime& use, bool withCosts);
std::string UseByHour(const UseByTime& use);
// Days by weeks and the weekdays' sums, by cost, or by time where `withCosts` is false or nothing cost
// anything; for periods of more than a week and of no more years than a picture has room for.
std::string UseByCalendar(const UseByTime& use, bool withCosts);

std::string CostByService(const UseByService& use);

}  // namespace qel
