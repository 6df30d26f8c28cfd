// The separator inside a regional date or time pattern.
#pragma once

#include <string>
#include <string_view>

namespace qel {

// The text between the first two places of day, month and year or of hour, minute and second, without blanks
// around it: "/" of "M/d/yyyy", "h" of "HH'h'mm". A blank where nothing else stands there; empty where
// nothing does.
std::string SeparatorIn(std::string_view pattern);

// The pattern with another separator in all places of its own.
std::string WithSeparator(std::string_view pattern, std::string_view separator);

}  // namespace qel
