#include "ui/SetupSnapshot.h"

#include <utility>

#include "settings/Settings.h"

namespace qel {

void SetupSnapshot::Take(const Settings& settings) {
  before = settings;
  for (int i = 0; i < settings.UsedServices; ++i) services.push_back(settings.Services[i]);
}

void SetupSnapshot::Restore(Settings& settings) const {
  Settings restored = before;
  restored.NoDisconData = settings.NoDisconData;
  restored.CostPerMeg = settings.CostPerMeg;
  restored.PreferredModem = settings.PreferredModem;
  restored.Holidays = settings.Holidays;
  restored.UsedHolidays = settings.UsedHolidays;
  restored.Services = settings.Services;
  for (std::size_t i = 0; i < services.size(); ++i) restored.Services[static_cast<int>(i)] = services[i];
  settings = std::move(restored);
}

}  // namespace qel
