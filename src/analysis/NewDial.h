// A dial or an incoming call opens a connection and finds the totals that it belongs to.
#pragma once

namespace qel {

// Works on CurrentLine, AnsweredPending and the analysis's state. A dial line with a number that no dial
// string can be leaves nothing behind. Reaching MaxConnections or MaxServices is told to the user and sets
// the flag that ends the pass. Errors inside are passed over, statement by statement.
void NewDial();

}  // namespace qel
