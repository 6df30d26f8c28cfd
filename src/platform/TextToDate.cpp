#include "platform/TextToDate.h"

#include <optional>

#include "platform/Clock.h"
#include "values/DateReader.h"
#include "values/RunTimeError.h"

namespace qel {

namespace {

std::optional<Date> DateInText(std::string_view text) { return DateIn(text, DayOf(Today()).year); }

}  // namespace

bool IsDate(std::string_view text) { return DateInText(text).has_value(); }

Date TextToDate(std::string_view text) {
  const auto date = DateInText(text);
  if (!date) Raise(TypeMismatch);
  return *date;
}

}  // namespace qel
