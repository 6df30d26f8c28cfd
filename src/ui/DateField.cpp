#include "ui/DateField.h"

#include <algorithm>

#include "core/ShownDates.h"
#include "platform/TextToDate.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// The text of the mask's form; empty for a text that is no date.
std::string MaskForm(const std::string& text) {
  if (!IsDate(text)) return "";
  const Date day = WholeDay(TextToDate(text));
  return day == 0 ? "" : format_date(day);
}

// Year, month and day as eight digits; empty for any other text.
std::string Dashed(const std::string& text) {
  const bool isYear = text.starts_with("19") || text.starts_with("20");
  if (text.size() != 8 || !isYear || !std::all_of(text.begin(), text.end(), IsDigit)) return "";
  return text.substr(0, 4) + "-" + text.substr(4, 2) + "-" + text.substr(6);
}

std::string DateIn(const std::string& text) {
  const std::string firstWord = text.substr(0, text.find_first_of(" T"));
  for (const std::string& reading : {text, firstWord, Dashed(text)})
    if (const std::string date = MaskForm(reading); !date.empty()) return date;
  return "";
}

}  // namespace

void MakeDateField(MaskedEdit& field) {
  field.Mask = DateMask();
  field.Understands = DateIn;
}

}  // namespace qel
