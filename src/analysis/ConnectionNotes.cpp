#include "analysis/ConnectionNotes.h"

#include <algorithm>

#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "values/CodePage.h"
#include "values/NumberFormat.h"

namespace qel {

namespace {

std::string Kilobytes(Int32 bytes) { return FormatNumber(bytes / 1024.0, "#,##0") + "K"; }

}  // namespace

std::string ReadNote(Int32 bytes) { return " R:" + Kilobytes(bytes); }
std::string WrittenNote(Int32 bytes) { return " - W:" + Kilobytes(bytes); }
std::string FreeNote(Int32 seconds) { return " - Free:" + FormatTime(static_cast<float>(seconds), false); }

std::string BlocksNote(Int16 blocks, Int16 minutes) {
  return " - " + std::to_string(blocks) + "B" + " x " + std::to_string(minutes) + "Min -";
}

std::string TidyNotes(const std::string& text) {
  std::string notes(Trim(text));
  if (const auto dashes = notes.find("- -"); dashes != std::string::npos) notes.erase(dashes + 1, 2);
  if (notes.starts_with('-')) notes.erase(0, 1);
  if (notes.ends_with(" -")) notes.erase(notes.size() - 2);
  return notes + " ";
}

float GetConnectionSeconds(const Period& period, ConnectionRecord& c) {
  float seconds{};
  IgnoreErrors([&] {
    if (c.StartDate == c.EndDate) {
      seconds = static_cast<float>(SecondsBetween(c.StartTime, c.EndTime));
      return;
    }
    Int32 n = std::max<Int32>(Int32(DaysBetween(c.StartDate, c.EndDate)) - 1, 0) * SecondsPerDay;
    std::string notes = c.Notes;
    if (c.StartDate >= period.PeriodStart) {
      notes = " Time prior to midnight";
      n += SecondsBetween(c.StartTime, TimeSerial(23, 59, 59)) + 1;
    }
    if (c.EndDate <= period.PeriodEnd) {
      notes = n == 0 ? " Time from midnight" : "";
      n += SecondsBetween(0, c.EndTime);
    }
    c.Notes.swap(notes);
    seconds = static_cast<float>(n);
  });
  return seconds;
}

}  // namespace qel
