// The connections of the latest analysis as the Details report counts and prices them: each one anew, inside
// the period, with its notes brought to their final form.
#pragma once

#include <functional>
#include <string>

#include "analysis/QELAnalyse.h"

namespace qel {

struct DetailLine {
  const ConnectionRecord& Connection;  // its Notes are those to show, untidied
  Int16 Index;
  bool HasError;
  Int32 Seconds;  // inside the period
  // In the user's currency. An answered call costs nothing, and its three parts are those of the connection
  // before.
  double DialCost, ServiceCost, DataCost, ConnectionCost;
};

// Calls `visit` for every connection shown, in the order of the log, and tells the display how far it is.
// Connections with errors are passed over where the user does not want errors shown. What fails in a
// connection goes to the error handler. Charging periods are counted afresh and the connections are left as
// they were found, so that the lines come out the same however often they are asked for.
void ForEachDetailLine(const std::function<void(const DetailLine&)>& visit);

}  // namespace qel
