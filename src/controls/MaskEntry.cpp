#include "controls/MaskEntry.h"

#include <algorithm>

#include "values/Calendar.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr char Unfilled = '_';

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0xC0;
}

}  // namespace

MaskEntry::MaskEntry(const std::string& mask, const std::string& text) : mask(mask), text(text) {
  if (!text.empty()) return;
  this->text = mask;
  Blank(0, mask.size());
}

bool MaskEntry::IsPlace(std::size_t place) const {
  return place < mask.size() && (mask[place] == '#' || mask[place] == 'A');
}

bool MaskEntry::Takes(std::size_t place, char c) const {
  return IsDigit(c) || (mask[place] == 'A' && IsLetter(c));
}

bool MaskEntry::HasShape() const {
  if (text.size() != mask.size()) return false;
  for (std::size_t i = 0; i < mask.size(); ++i)
    if (IsPlace(i) ? text[i] != Unfilled && !Takes(i, text[i]) : text[i] != mask[i]) return false;
  return true;
}

bool MaskEntry::IsWhole() const {
  if (!HasShape()) return false;
  for (std::size_t i = 0; i < mask.size(); ++i)
    if (IsPlace(i) && text[i] == Unfilled) return false;
  return true;
}

std::size_t MaskEntry::NextPlace(std::size_t from) const {
  while (from < mask.size() && !IsPlace(from)) ++from;
  return from;
}

void MaskEntry::Blank(std::size_t from, std::size_t end) {
  for (std::size_t i = from; i < end; ++i)
    if (IsPlace(i)) text[i] = Unfilled;
}

bool MaskEntry::Replace(std::size_t from, std::size_t length, std::string_view typed, bool backward) {
  from = std::min(from, text.size());
  length = std::min(length, text.size() - from);
  if (typed.empty()) return Delete(from, length, backward);
  MaskEntry filled = *this;
  filled.Blank(from, from + length);
  filled.at = from;
  bool any = false;
  for (const char c : typed) {
    const bool fits = filled.Type(c);
    if (!fits && (IsDigit(c) || IsLetter(c))) return false;
    any |= fits;
  }
  if (!any) return false;
  text = filled.text;
  at = filled.at;
  return true;
}

bool MaskEntry::Delete(std::size_t from, std::size_t length, bool backward) {
  at = from;
  if (NextPlace(from) >= from + length) {
    if (backward) {
      while (at > 0 && !IsPlace(at - 1)) --at;
      if (at > 0) --at;
    } else {
      at = NextPlace(from);
    }
    length = 1;
  }
  Blank(at, std::min(at + length, text.size()));
  return true;
}

bool MaskEntry::Type(char c) {
  const std::size_t place = NextPlace(at);
  if (place < mask.size() && Takes(place, c)) {
    text[place] = c;
    at = place + 1;
    if (!IsPlace(at)) at = NextPlace(at);
    return true;
  }
  return !IsDigit(c) && !IsLetter(c) && EndPart();
}

// A separator was typed, whichever: what stands before it is whole then, and what follows comes next. Behind
// separators that came by themselves, one that is typed all the same has nothing to do.
bool MaskEntry::EndPart() {
  if (at == 0) return false;
  if (!IsPlace(at - 1)) return true;
  std::size_t begin = at - 1, end = at;
  while (begin > 0 && IsPlace(begin - 1)) --begin;
  while (IsPlace(end)) ++end;
  if (!Complete(begin, end)) return false;
  at = NextPlace(end);
  return true;
}

// A part of two places that holds one digit gets a "0" before it; one of four is a year, of which one or two
// digits are enough.
bool MaskEntry::Complete(std::size_t begin, std::size_t end) {
  const std::size_t size = end - begin;
  const std::size_t filled = std::min(text.find(Unfilled, begin), end) - begin;
  if (filled == size) return true;
  if (filled == 0 || text.find_first_not_of(Unfilled, begin + filled) < end) return false;
  const std::string digits = text.substr(begin, filled);
  if (!std::all_of(digits.begin(), digits.end(), IsDigit)) return false;
  if (size == 2) {
    text.replace(begin, size, "0" + digits);
    return true;
  }
  if (size != 4 || filled > 2) return false;
  text.replace(begin, size, std::to_string(DayOf(DateSerial(std::stoi(digits), 1, 1)).year));
  return true;
}

void MaskEntry::CompleteYear() {
  constexpr std::string_view Open = "__";
  const std::size_t open = text.find(Open);
  if (!HasShape() || open == std::string::npos || open < 2) return;
  const std::string digits = text.substr(open - 2, 2);
  MaskEntry whole = *this;
  if (digits == "19" || digits == "20" || !IsPlace(open - 1) || !IsPlace(open - 2)) return;
  if (whole.Complete(open - 2, open + Open.size()) && whole.IsWhole()) text = whole.text;
}

}  // namespace qel
