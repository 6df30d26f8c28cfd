#include "reports/UseByService.h"

#include <algorithm>

#include "modemlog/DialledNumber.h"
#include "settings/Settings.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr char AnsweredGroup[] = "Answered Calls", UnknownGroup[] = "Unknown";

ServiceUse UseOf(const Settings& settings, const DetailLine& line) {
  const ConnectionRecord& c = line.Connection;
  ServiceUse use;
  use.Key = KeyOf(settings, c.Number);
  use.Number = use.Key.Index < 0 ? use.Key.Number : c.Number;
  use.Service = GetServiceName(settings, use.Number);
  use.Connection = line.Index;
  use.Sessions = 1;
  use.Seconds = line.Seconds;
  use.BytesRead = c.BytesRead;
  use.Blocks = line.Blocks;
  use.BlockMinutes = long{line.Blocks} * line.BlockMinutes;
  use.FreeSeconds = c.FreeSeconds;
  use.DialCost = line.Costs.DialCostNow;
  use.ServiceCost = line.Costs.ServiceCostNow;
  use.DataCost = line.Costs.DataCostNow;
  use.TotalCost = line.ConnectionCost;
  return use;
}

}  // namespace

ServiceKey KeyOf(const Settings& settings, const std::string& number) {
  if (number == AnsweredNumber || number == AnsweredGroup) return {-1, AnsweredGroup};
  if (number == UndialledNumber || number == UnknownGroup) return {-1, UnknownGroup};
  const Int16 index = GetServiceIndex(settings, number);
  return {index, index < 0 ? std::string(Trim(number)) : ""};
}

void ServiceUse::Add(const ServiceUse& other) {
  for (const auto figure : {&ServiceUse::Sessions, &ServiceUse::Seconds, &ServiceUse::BytesRead,
                            &ServiceUse::Blocks, &ServiceUse::BlockMinutes, &ServiceUse::FreeSeconds})
    this->*figure += other.*figure;
  for (const auto cost :
       {&ServiceUse::DialCost, &ServiceUse::ServiceCost, &ServiceUse::DataCost, &ServiceUse::TotalCost})
    this->*cost += other.*cost;
}

void UseByService::Add(const DetailLine& line) {
  const ServiceUse use = UseOf(settings, line);
  const auto found = std::find_if(services.begin(), services.end(),
                                  [&use](const ServiceUse& service) { return service.Key == use.Key; });
  if (found != services.end())
    found->Add(use);
  else
    services.insert(use.Number == UnknownGroup ? services.begin() : services.end(), use);
}

ServiceUse UseByService::Totals() const {
  ServiceUse totals;
  totals.Service = "TOTALS:";
  for (const auto& service : services) totals.Add(service);
  return totals;
}

}  // namespace qel
