// The connections of an analysis, counted and priced: each one anew, inside the period, with its
// notes brought to their final form. Here and nowhere else it is decided which of them count and what they
// cost.
#pragma once

#include <functional>

#include "analysis/PricePieces.h"
#include "reports/ReportOf.h"

namespace qel {

struct DetailLine {
  const ConnectionRecord& Connection;  // its Notes are those to show, untidied
  const CallPieces& Pieces;            // of its cost; none of what was not priced for it
  Int16 Index = 0;
  Int32 Seconds = 0;  // inside the period
  // In the user's currency; all 0 where costs are not calculated.
  CallCosts Costs = {};
  double ConnectionCost = 0;
  Int16 BlockMinutes = 0, Blocks = 0;  // of the service, and those that the connection began
};

using DetailVisit = std::function<void(const DetailLine&)>;

// Calls `visit` for every connection, in the order of the log, and tells the display how far it is.
// Connections with errors are passed over where the user does not want errors shown. What fails in a
// connection goes to the error handler. Charging periods are counted afresh, so that the lines come out
// the same however often they are asked for.
//
// For exports, pages and charts: a dial that never connected is no connection; a connection has the bytes
// that were counted for it, and not those of an earlier one in its place; only a call that was answered is
// free of charge, in all its parts.
void ForEachConnection(const ReportOf& of, const DetailVisit& visit);

// The same for the Details report, which takes the records as the analysis left them. An answered call costs
// nothing, and its three parts are those of the connection before.
void ForEachDetailLine(const ReportOf& of, const DetailVisit& visit);

// Whether ForEachConnection comes to a connection of this number.
bool IsReported(const ReportOf& of, int number);

// A connection with errors that the user does not want to see.
bool IsPassedOver(const Settings& settings, const ConnectionRecord& connection);

}  // namespace qel
