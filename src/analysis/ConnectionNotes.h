// The text of a connection's notes, and what the details report makes of it.
#pragma once

#include <string>

#include "analysis/AnalysisResult.h"
#include "analysis/Period.h"
#include "analysis/PricePieces.h"

namespace qel {

// The connection becomes one of a kind: its notes begin anew.
void BeginNotes(ConnectionRecord& connection, ConnectionKind kind);

void NoteBytesRead(ConnectionRecord& connection, Int32 bytes);     // " R:12K"
void NoteBytesWritten(ConnectionRecord& connection, Int32 bytes);  // " - W:12K"

// What a piece of the price adds: of tariff time its tariff, where that is not noted yet, and its units
// (" - Night - 4U x 3Min"), the free time (" - Free:00:12:30"), the blocks (" - 3B x 15Min -"). Others add
// nothing.
void AddNote(const PricePiece& piece, std::string& notes);

// Notes as they are shown: trimmed, the first "- -" made one dash, no dash at either end, one blank behind.
std::string TidyNotes(const std::string& text);

// Seconds of a connection inside the period; over midnight it loses the part on a day outside, while whole
// days in between always count. Raises 6 beyond 32 bits.
Int32 SecondsInside(const Period& period, const ConnectionRecord& connection);

// The same for the details report. Where it sticks out of the period its Notes become
// " Time prior to midnight" or " Time from midnight"; over a midnight inside the period they become empty. 0
// where anything fails.
float GetConnectionSeconds(const Period& period, ConnectionRecord& connection);

}  // namespace qel
