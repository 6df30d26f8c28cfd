// What calls would have cost elsewhere: the connections of each service, priced by the tariffs and rates of
// every service that is defined. Each price is that of a report of its own, under settings in which the
// service has the offer's costs: what is used of hours and data, free time and holidays counts afresh.
#pragma once

#include <string>
#include <vector>

#include "reports/ReportOf.h"

namespace qel {

struct OfferCost {
  Int16 Service = 0;      // index into Services of the service whose costs they are
  double Cost = 0;        // in the user's currency
  CallCosts Parts = {};   // which sum to it but for rounding
  int Unpriced = 0;       // calls with a time that none of its tariffs holds, so that the cost is too low
  bool Failed = false;    // a price was beyond what numbers hold; its part is left out
  bool Cheapest = false;  // of those that price every call, or of all where none does; several may be alike
};

// The calls of one service.
struct ServiceComparison {
  Int16 Service = 0;   // index into Services
  int Connection = 0;  // number of the first one
  long Sessions = 0;
  double Cost = 0;                // its own
  std::vector<OfferCost> Offers;  // in the order of the services, its own among them
};

// Of the services that were called, in their order. Calls to other numbers, and answered ones, have nothing
// to compare. Empty where no service was called or costs are not calculated. Works on all processors.
std::vector<ServiceComparison> CompareTariffs(const ReportOf& of);

// One call of the period for the length of a month, on the average of years.
double AMonth(const Period& period, double cost);

// The settings in which `service` has the costs of `offer`, indices into Services, and is the only one.
Settings SettingsAtOffer(const Settings& settings, int service, int offer);

}  // namespace qel
