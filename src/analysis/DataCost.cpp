#include "analysis/Pricing.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"

namespace qel {

double Pricing::GetDataCost(const std::string& number, double bytes, Date date) {
  TraceProcedure("GetDataCost");
  if (bytes == 0) return 0;
  const Int16 index = GetServiceIndex(settings, number);
  if (index < 0) return bytes / BytesPerMegabyte * settings.CostPerMeg;
  const ServiceRecord& service = settings.Services[index];
  const double allowance = BytesPerMegabyte * service.AfterMeg;
  Int32& used = Penalties.At(index, GetPeriodNumber(date, service.MegPeriod)).Bytes;
  const bool afresh = service.MegPeriod == "Session";  // the allowance is each connection's own
  used = Int32(bytes + (afresh ? 0 : int{used}));
  if (used <= allowance) return 0;
  const double within = bytes - (used - allowance);
  const double charged = within > 0 ? bytes - within : bytes;
  return charged / BytesPerMegabyte * service.PerMeg;
}

}  // namespace qel
