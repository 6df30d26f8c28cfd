#include "values/DatePattern.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "values/CodePage.h"

namespace qel {

namespace {

// A place of the pattern, or the text between two of them with its quotes off.
struct Part {
  std::string text;
  bool isPlace;
};

std::vector<Part> PartsOf(std::string_view pattern) {
  std::vector<Part> parts;
  bool quoted = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c == '\'') {
      const bool doubled = quoted && pattern.substr(i).starts_with("''");
      if (!doubled) {
        quoted = !quoted;
        continue;
      }
      ++i;
    }
    const bool isPlace = !quoted && std::string_view("dMyHhmst").find(c) != std::string_view::npos;
    const bool joins =
        !parts.empty() && parts.back().isPlace == isPlace && (!isPlace || parts.back().text.back() == c);
    if (joins)
      parts.back().text += c;
    else
      parts.push_back({std::string(1, c), isPlace});
  }
  return parts;
}

// Weekday and day half have neighbours, not separators.
bool IsSeparated(const Part& part) {
  return part.isPlace && part.text.front() != 't' && !part.text.starts_with("ddd");
}

bool IsDatePlace(const Part& part) {
  return IsSeparated(part) && std::string_view("dMy").find(part.text.front()) != std::string_view::npos;
}

bool IsSeparator(const std::vector<Part>& parts, std::size_t i) {
  return i > 0 && i + 1 < parts.size() && !parts[i].isPlace && IsSeparated(parts[i - 1]) &&
         IsSeparated(parts[i + 1]);
}

std::string_view WithoutBlanksAround(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  return trimmed.empty() ? text : trimmed;
}

std::string SeparatorAmong(const std::vector<Part>& parts) {
  for (std::size_t i = 0; i < parts.size(); ++i)
    if (IsSeparator(parts, i)) return std::string(WithoutBlanksAround(parts[i].text));
  return "";
}

}  // namespace

std::string SeparatorIn(std::string_view pattern) { return SeparatorAmong(PartsOf(pattern)); }

std::vector<DatePlace> DatePlacesOf(std::string_view pattern) {
  std::vector<DatePlace> places;
  for (const Part& part : PartsOf(pattern))
    if (IsDatePlace(part)) places.push_back({part.text.front(), static_cast<int>(part.text.size())});
  return places;
}

std::optional<std::array<DatePlace, 3>> DatePlacesIn(std::string_view pattern) {
  const std::vector<DatePlace> places = DatePlacesOf(pattern);
  std::set<char> letters;
  for (const DatePlace& place : places) letters.insert(place.Letter);
  if (letters.size() < 3 || places.size() > 3) return std::nullopt;
  return std::array{places[0], places[1], places[2]};
}

bool HasOneSeparator(std::string_view pattern) {
  const std::vector<Part> parts = PartsOf(pattern);
  const bool fiveParts = parts.size() == 5 || (parts.size() == 6 && !parts[5].isPlace);
  if (!fiveParts || !DatePlacesIn(pattern)) return false;
  const std::string own = SeparatorAmong(parts);
  for (const std::size_t i : {1u, 3u, 5u})
    if (i < parts.size() && WithoutBlanksAround(parts[i].text) != own) return false;
  return IsDatePlace(parts[0]) && IsDatePlace(parts[2]) && IsDatePlace(parts[4]);
}

std::string InNumbers(std::string_view pattern) {
  const auto places = DatePlacesIn(pattern);
  if (!places) return std::string(pattern);
  const auto isName = [](const DatePlace& place) { return place.Letter == 'M' && place.Width > 2; };
  if (HasOneSeparator(pattern) && std::none_of(places->begin(), places->end(), isName))
    return std::string(pattern);
  const std::string own = SeparatorIn(pattern);
  const std::string separator = own == "." || own == "-" ? own : "/";
  std::string numbers;
  for (const DatePlace& place : *places) {
    if (!numbers.empty()) numbers += separator;
    numbers.append(isName(place) ? 2 : static_cast<std::size_t>(place.Width), place.Letter);
  }
  return numbers;
}

std::string Quoted(std::string_view text) {
  const bool plain = std::none_of(text.begin(), text.end(),
                                  [](unsigned char c) { return c == '\'' || std::isalpha(c) != 0; });
  if (plain) return std::string(text);
  std::string quoted = "'";
  for (const char c : text) quoted.append(c == '\'' ? 2 : 1, c);
  return quoted + "'";
}

std::string WithSeparator(std::string_view pattern, std::string_view separator) {
  const std::vector<Part> parts = PartsOf(pattern);
  const std::string own = SeparatorAmong(parts);
  std::string result;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool replaced = IsSeparator(parts, i) && WithoutBlanksAround(parts[i].text) == own;
    if (replaced)
      result += Quoted(separator);
    else
      result += parts[i].isPlace ? parts[i].text : Quoted(parts[i].text);
  }
  return result;
}

}  // namespace qel
