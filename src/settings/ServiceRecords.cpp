#include "settings/ServiceRecords.h"

#include "values/CodePage.h"

namespace qel {

namespace {

bool CallCosts(const ServiceRecord& service) {
  if (service.DialOption == ServiceRecord::FixedCharge) return service.DialFixedTariff != 0;
  bool costs = false;
  for (int i = 0; service.DialOption == ServiceRecord::ByTariffs && i < service.UsedTariffs; ++i)
    costs = costs || service.Tariffs[i].DialRate != 0 || service.Tariffs[i].PerMinuteRate != 0;
  return costs;
}

bool TimeCosts(const ServiceRecord& service) {
  if (service.ServiceOption == ServiceRecord::FlatRate) return service.ServiceRate != 0;
  return service.ServiceOption == ServiceRecord::FlexibleRate &&
         (service.FlexRate != 0 || service.FlexRate2 != 0);
}

}  // namespace

std::string ServiceNameOf(const ServiceRecord& service) { return std::string(Trim(service.ServiceName)); }

bool CostsNothing(const ServiceRecord& service) {
  return !CallCosts(service) && !TimeCosts(service) && service.PerMeg == 0;
}

}  // namespace qel
