// What each service was used for and what it cost, added up from the connections.
//
// The Summary as text has its own figures, from the totals that the analysis kept beside the connections.
// Those hold what was left over from before the period, and put calls under a service that shares one of
// their numbers; here the parts sum to their totals, and both are those of the connections.
#pragma once

#include <string>
#include <vector>

#include "reports/DetailLines.h"

namespace qel {

// Calls of one service, or of one number that no service has. Calls that were answered are one group, calls
// whose number the log does not tell another.
struct ServiceKey {
  Int16 Index = -1;    // into Services
  std::string Number;  // where there is none: the number, or the group's name

  bool operator==(const ServiceKey&) const = default;
};

// Of a connection's number, or of the number under which the Summary has a row.
ServiceKey KeyOf(const Settings& settings, const std::string& number);

struct ServiceUse {
  ServiceKey Key;
  std::string Service, Number;  // the name to show; the number that was dialled first
  int Connection = 0;           // number of the first one
  long Sessions = 0, Seconds = 0, BytesRead = 0, Blocks = 0, BlockMinutes = 0, FreeSeconds = 0;
  double DialCost = 0, ServiceCost = 0, DataCost = 0, TotalCost = 0;  // in the user's currency

  void Add(const ServiceUse& other);  // the figures
};

class UseByService {
 public:
  explicit UseByService(const Settings& settings) : settings(settings) {}

  void Add(const DetailLine& line);

  // The group without a number first, all others in the order in which they were met.
  const std::vector<ServiceUse>& Services() const { return services; }
  ServiceUse Totals() const;

 private:
  const Settings& settings;
  std::vector<ServiceUse> services;
};

}  // namespace qel
