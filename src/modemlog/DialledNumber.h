// From a dial line to the number dialled, and from a number to the service that the user has defined for it.
// Numbers are compared character by character: the same digits with and without a hyphen are two numbers.
#pragma once

#include <string>
#include <string_view>

#include "values/CheckedInteger.h"

namespace qel {

struct Settings;

// The number on a dial line: behind `ModemDial` one character (tone or pulse) is skipped, and the number ends
// at the driver's line-end notation, which begins with "<". Without a "<" all but the line's last character
// is taken.
std::string CutDialledNumber(const Settings& settings, std::string_view line);

// Whether all characters, as capitals, may stand in a dial string. An empty text may.
bool IsValidNumber(const std::string& text);

// Index into Services of the first service with this number or alternate number, or -1. Blanks around
// `number` are passed over, those of the service are not.
Int16 GetServiceIndex(const Settings& settings, const std::string& number);

// The trimmed name of the number's service, or the number itself.
std::string GetServiceName(const Settings& settings, const std::string& number);

// The other number of the number's service, or an empty text.
std::string GetAltNumber(const Settings& settings, const std::string& number);

}  // namespace qel
