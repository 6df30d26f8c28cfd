#include "ui/SetupSnapshot.h"

#include <utility>

namespace qel {

void SetupSnapshot::Restore(Settings& settings) const {
  Settings restored = before;
  restored.NoDisconData = settings.NoDisconData;
  restored.CostPerMeg = settings.CostPerMeg;
  restored.PreferredModem = settings.PreferredModem;
  restored.Holidays = settings.Holidays;
  restored.UsedHolidays = settings.UsedHolidays;
  restored.Services = settings.Services;
  for (int i = 0; i < before.UsedServices; ++i) restored.Services[i] = before.Services[i];
  settings = std::move(restored);
}

}  // namespace qel
