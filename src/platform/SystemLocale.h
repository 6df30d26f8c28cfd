// What the locale of the environment says about writing dates, numbers and money. The process's own locale
// stays "C" throughout, so that nothing else in it depends on where it runs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qel {

struct RegionalValues;

// Puts the locale's values in place of those in `values`, each category by its own name: LC_ALL, else
// LC_TIME, LC_NUMERIC or LC_MONETARY, else LANG. Leaves as it was what the locale does not say, what
// Windows-1252 cannot hold, and everything of the C locale and of a locale that is not installed. Separators
// of dates and times stand in the patterns.
void TakeSystemLocale(RegionalValues& values);

// The regional pattern of a strftime format: "%d.%m.%Y" is "dd.MM.yyyy". `halfDayTime` stands for "%r".
// Nothing where the format asks for what patterns have no place for.
std::optional<std::string> PatternOfStrftime(std::string_view format,
                                             std::string_view halfDayTime = "%I:%M:%S %p");

// A locale's text in Windows-1252, or nothing where the character set is unknown or lacks a character.
std::optional<std::string> FromCharset(std::string_view text, std::string_view charset);

}  // namespace qel
