// The tables of settings: names, places, stored forms and defaults, in the order of loading.
#pragma once

#include <span>
#include <variant>

#include "settings/SettingField.h"

namespace qel {

struct Setting {
  const char* Name;
  StoredAs As;
  SettingPlace Place;
  std::variant<std::monostate, const char*, double, bool> Default = {};  // none: stays empty
  bool Dirty = true;  // filling the default in means that the settings must be stored
};

std::span<const Setting> GeneralSettings();
std::span<const Setting> BooleanSettings();  // in the same key, behind GeneralSettings
std::span<const Setting> ModemSettings();
std::span<const Setting> CostSettings();
std::span<const Setting> ViewLogTable();
std::span<const Setting> ViewReportTable();
std::span<const Setting> SummaryReportTable();
std::span<const Setting> DetailReportTable();

// The names of both tables of the General key that WriteUserParameters stores, in its order.
std::span<const char* const> GeneralStoreOrder();

bool IsMissing(const Setting& setting);
void SetDefault(const Setting& setting);

}  // namespace qel
