#include "analysis/ConnectionNotes.h"

#include <algorithm>

#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "values/CodePage.h"
#include "values/NumberFormat.h"

namespace qel {

namespace {

std::string Kilobytes(Int32 bytes) { return FormatNumber(bytes / 1024.0, "#,##0") + "K"; }

void NoteTariff(const PricePiece& piece, std::string& notes) {
  const TariffRecord& tariff = *piece.Tariff;
  if (notes.find(tariff.Description) == std::string::npos) notes += " - " + tariff.Description;
  if (piece.Units <= 0) return;
  std::string units = " - " + std::to_string(piece.Units) + "U x " + std::to_string(tariff.UnitMins) + "Min";
  if (tariff.UnitSecs > 0) units += " " + std::to_string(tariff.UnitSecs) + "Sec";
  if (piece.Note == UnitNote::AfterDash) notes += " - ";  // TidyNotes takes the double dash out where it can
  if (piece.Note != UnitNote::Once || notes.find(units) == std::string::npos) notes += units;
}

}  // namespace

void BeginNotes(ConnectionRecord& connection, ConnectionKind kind) {
  static constexpr const char* beginnings[] = {"", " No Cost", " Unable to get dialled number -",
                                               " ERROR - No Disconnect Entry -",
                                               " ERROR - Incomplete Tariff -"};
  connection.Notes = beginnings[static_cast<std::size_t>(kind)];
  connection.Kind = kind;
  connection.ReadNoted = connection.WrittenNoted = false;
}

void NoteBytesRead(ConnectionRecord& connection, Int32 bytes) {
  connection.Notes += " R:" + Kilobytes(bytes);
  connection.ReadNoted = true;
}

void NoteBytesWritten(ConnectionRecord& connection, Int32 bytes) {
  connection.Notes += " - W:" + Kilobytes(bytes);
  connection.WrittenNoted = true;
}

void AddNote(const PricePiece& piece, std::string& notes) {
  if (piece.Kind == PieceKind::TariffTime)
    NoteTariff(piece, notes);
  else if (piece.Kind == PieceKind::FreeTime)
    notes += " - Free:" + FormatTime(static_cast<float>(piece.Seconds), false);
  else if (piece.Kind == PieceKind::Blocks)
    notes += " - " + std::to_string(piece.Units) + "B x " + std::to_string(piece.BlockMinutes) + "Min -";
}

std::string TidyNotes(const std::string& text) {
  std::string notes(Trim(text));
  if (const auto dashes = notes.find("- -"); dashes != std::string::npos) notes.erase(dashes + 1, 2);
  if (notes.starts_with('-')) notes.erase(0, 1);
  if (notes.ends_with(" -")) notes.erase(notes.size() - 2);
  return notes + " ";
}

Int32 SecondsInside(const Period& period, const ConnectionRecord& c) {
  if (c.StartDate == c.EndDate) return SecondsBetween(c.StartTime, c.EndTime);
  Int32 seconds = std::max<Int32>(DaysBetween(c.StartDate, c.EndDate) - 1, 0) * SecondsPerDay;
  if (c.StartDate >= period.PeriodStart) seconds += SecondsPerDay - SecondOfDay(c.StartTime);
  if (c.EndDate <= period.PeriodEnd) seconds += SecondsBetween(0, c.EndTime);
  return seconds;
}

float GetConnectionSeconds(const Period& period, ConnectionRecord& c) {
  float seconds{};
  IgnoreErrors([&] {
    const Int32 inside = SecondsInside(period, c);
    if (c.StartDate != c.EndDate) {
      if (c.EndDate <= period.PeriodEnd)
        c.Notes = inside == SecondsBetween(0, c.EndTime) ? " Time from midnight" : "";
      else if (c.StartDate >= period.PeriodStart)
        c.Notes = " Time prior to midnight";
    }
    seconds = static_cast<float>(inside);
  });
  return seconds;
}

}  // namespace qel
