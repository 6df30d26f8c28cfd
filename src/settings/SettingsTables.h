// The tables of settings: members, names, stored forms and defaults, in the order of loading.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "settings/SettingRow.h"
#include "settings/Settings.h"

namespace qel {

std::span<const SettingRow<Settings>> GeneralSettings();
std::span<const SettingRow<WindowSettings>> MainWindowTable();  // in the same key, behind GeneralSettings
std::span<const SettingRow<Settings>> BooleanSettings();        // and behind these
std::span<const SettingRow<Settings>> ModemSettings();
std::span<const SettingRow<Settings>> CostSettings();
std::span<const SettingRow<ViewLogRecord>> ViewLogTable();
std::span<const SettingRow<WindowSettings>> ViewReportTable();
std::span<const SettingRow<ReportViewSettings>> SummaryReportTable();
std::span<const SettingRow<ReportViewSettings>> DetailReportTable();

// ForceAMPM, which goes to whichever key was stored last.
const SettingRow<Settings>& AnyKeySetting();

// The names of the General key's settings that WriteUserParameters stores, in its order.
std::span<const char* const> GeneralStoreOrder();

// How the value of a key is stored, whichever table it stands in; nothing where the program knows no such
// value. `key` is the part of its path below the program's own, such as "\\ViewReport\\DetailReport".
std::optional<SettingForm> FormOf(std::string_view key, std::string_view name);

}  // namespace qel
