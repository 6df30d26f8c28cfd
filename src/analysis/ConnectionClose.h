// The three ways in which a connection ends: by its disconnect line, by a line that proves its disconnect
// line lost, and by the end of the log. Each prices the connection and adds it to the totals.
#pragma once

namespace qel {

// The line in hand is the disconnect line. A connection that ended before the period is forgotten with all
// before it.
void OrdinaryClose();

// The line in hand opens another connection: the end is estimated by NoDisconDuration and NoDisconData.
void CloseNoDisconnect();

// The log ended with the connection open: estimated likewise.
void CloseAtEndOfLog();

}  // namespace qel
