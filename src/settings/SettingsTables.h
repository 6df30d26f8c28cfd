// The tables of settings: names, places, stored forms and defaults, in the order of loading.
#pragma once

#include <optional>
#include <span>
#include <string_view>
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

// How the value of a key is stored, whichever table it stands in; nothing where the program knows no such
// value. `key` is the part of its path below the program's own, such as "\\ViewReport\\DetailReport".
std::optional<SettingForm> FormOf(std::string_view key, std::string_view name);

bool IsMissing(const Setting& setting);
void SetDefault(const Setting& setting);

}  // namespace qel
