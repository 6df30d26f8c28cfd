// Looking through the default log for numbers that were dialled and that no service has.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "settings/Settings.h"

namespace qel {

// The number on a line of the log, where the line is a dial line, the number has digits and commas alone, and
// no service has it.
std::optional<std::string> UnknownNumber(const Settings& settings, std::string_view logLine);

// Reads the log and makes a service of each unknown number, until the end or until there are MaxServices.
// `found` is told behind each of them; `proceed` hears of the progress in percent and answers whether to go
// on. Raises the disk's errors, and 9 for a service beyond the room that was made for them at the start.
void ScanForServices(Settings& settings, const std::string& path, const std::function<void()>& found,
                     const std::function<bool(int percent)>& proceed);

}  // namespace qel
