// The pieces of text that a connection's notes are made of, and what the details report makes of them.
#pragma once

#include <string>

#include "analysis/AnalysisResult.h"
#include "analysis/Period.h"

namespace qel {

inline constexpr char NoDialLineNote[] = " Unable to get dialled number -";
inline constexpr char AnsweredNote[] = " No Cost";
inline constexpr char NoDisconnectNote[] = " ERROR - No Disconnect Entry -";
inline constexpr char IncompleteTariffNote[] = " ERROR - Incomplete Tariff -";

std::string ReadNote(Int32 bytes);                    // " R:12K"
std::string WrittenNote(Int32 bytes);                 // " - W:12K"
std::string FreeNote(Int32 seconds);                  // " - Free:00:12:30"
std::string BlocksNote(Int16 blocks, Int16 minutes);  // " - 3B x 15Min -"

// Notes as they are shown: trimmed, the first "- -" made one dash, no dash at either end, one blank behind.
std::string TidyNotes(const std::string& text);

// Seconds of a connection inside the period. Where it sticks out of the period its Notes become
// " Time prior to midnight" or " Time from midnight"; over a midnight inside the period they become empty. 0
// where anything fails.
float GetConnectionSeconds(const Period& period, ConnectionRecord& connection);

}  // namespace qel
