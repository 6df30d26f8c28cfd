#include "ui/SetupSnapshot.h"

#include <algorithm>

#include "settings/Settings.h"

namespace qel {

namespace {

// clang-format off
const SettingPlace Covered[] = {
    &ModemLogFile, &ModemLogDir, &MaxServices, &UsedServices, &MaxConnections, &MaxConnectDays, &MaxLogSize,
    &EditLog, &ShowErrors, &ShowToolbars, &FlatToolbars, &ShowGraphic, &AutoOptimize, &Tips, &ModemCheck,
    &ModemDial, &ModemAnswer, &ModemConnect, &ModemUserDisconnect, &ModemHostDisconnect, &ModemReads,
    &ModemWrites, &NoDisconDuration, &CalcCosts, &DialCost, &CostPerHour, &UserStartPref, &UserStartDate,
    &UserStartOfWeek, &UserStartOfMonth, &UserReportPref, &WarningSoundFile, &ForceAMPM,
};
// clang-format on

}  // namespace

SetupSnapshot::Value SetupSnapshot::ValueAt(const SettingPlace& place) {
  return std::visit(
      [](const auto* setting) {
        return Value(std::in_place_type<std::remove_cvref_t<decltype(*setting)>>, *setting);
      },
      place);
}

void SetupSnapshot::Take() {
  for (const SettingPlace& place : Covered) values.emplace_back(place, ValueAt(place));
  for (int i = 0; i < UsedServices; ++i) services.push_back(Services[i]);
}

void SetupSnapshot::Restore() const {
  for (const auto& [place, value] : values)
    std::visit([&kept = value](
                   auto* setting) { *setting = std::get<std::remove_cvref_t<decltype(*setting)>>(kept); },
               place);
  for (std::size_t i = 0; i < services.size(); ++i) Services[static_cast<int>(i)] = services[i];
}

bool SetupSnapshot::Differs(std::initializer_list<SettingPlace> settings) const {
  return std::any_of(values.begin(), values.end(), [&settings](const auto& kept) {
    const auto asked = std::find(settings.begin(), settings.end(), kept.first);
    return asked != settings.end() && ValueAt(kept.first) != kept.second;
  });
}

}  // namespace qel
