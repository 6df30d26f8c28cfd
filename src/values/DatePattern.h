// The separator inside a regional date or time pattern.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qel {

// The text between the first two places of day, month and year or of hour, minute and second, without blanks
// around it: "/" of "M/d/yyyy", "h" of "HH'h'mm". A blank where nothing else stands there; empty where
// nothing does.
std::string SeparatorIn(std::string_view pattern);

// A place of a date: 'd', 'M' or 'y', and how many letters it has there.
struct DatePlace {
  char Letter;
  int Width;
};

// All of them in the pattern's order; the weekday is none.
std::vector<DatePlace> DatePlacesOf(std::string_view pattern);

// Day, month and year in the pattern's order. Nothing where one of them is missing or comes twice.
std::optional<std::array<DatePlace, 3>> DatePlacesIn(std::string_view pattern);

// Whether a pattern is the three places of a date with the same separator between them, give or take blanks
// beside it and a separator at the end: "d.M.yyyy", "dd. MM. yyyy", "yyyy.MM.dd.".
bool HasOneSeparator(std::string_view pattern);

// A date's pattern in numbers and with one separator, in its own order: "dddd, d. MMMM yyyy" is "d.MM.yyyy".
// One that is so already stays as it is, and so does one without the three places.
std::string InNumbers(std::string_view pattern);

// A text as a pattern has it that is to stand for itself: between quotes where it needs them.
std::string Quoted(std::string_view text);

// The pattern with another separator in all places of its own.
std::string WithSeparator(std::string_view pattern, std::string_view separator);

}  // namespace qel
