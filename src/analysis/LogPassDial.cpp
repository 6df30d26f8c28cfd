// How a pass opens a connection and its totals.
#include <string>

#include "analysis/LogPass.h"
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"
#include "values/CodePage.h"

namespace qel {

namespace {

void TellLimit(const std::string& things) {
  MsgBox({"Cannot Continue.... Exceeded Maximum Number of " + things + ".\r" + "Please increase the 'Max " +
              things + "' parameter in the QEL Options window.\r" + "The following report is incomplete!",
          "", Icon::Critical});
}

}  // namespace

void LogPass::OpenConnection(const std::string& number) {
  IgnoreErrors([this] { ++result.ConnectionCount; });
  if (result.ConnectionCount >= settings.MaxConnections) {
    result.ConnectionsExceeded = true;
    TellLimit("Connections");
  }
  IgnoreErrors([&] {
    ConnectionRecord& connection = result.Connections[result.ConnectionCount];
    connection.Number = AnsweredPending ? AnsweredNumber : number;
    if (AnsweredPending) connection.Answered = true;
  });
}

// The first slot that has the number or whose service has it. The first free slot is looked at too, so an
// empty number takes it without counting it.
Int16 LogPass::FindSlot(const std::string& number) const {
  for (Int16 i = 1; i <= result.TotalsCount + 1; ++i) {
    const ServiceTotal& slot = result.ServiceTotals[i];
    if (Trim(slot.Number) == number || Trim(slot.AltNumber) == number) return i;
  }
  return 0;
}

void LogPass::OpenSlot(const std::string& number) {
  IgnoreErrors([&] { CurrentService = FindSlot(number); });
  if (CurrentService > 0) return;
  CurrentService = result.TotalsCount + 1;
  IgnoreErrors([&] {
    ServiceTotal& slot = result.ServiceTotals[CurrentService];
    slot.Number = number;
    slot.AltNumber = GetAltNumber(settings, number);
    slot.Blocks = 0;
  });
  result.TotalsCount = CurrentService;
}

void LogPass::NewDial() {
  CurrentService = 0;
  result.ServicesExceeded = false;
  result.ConnectionsExceeded = false;
  std::string number = "Answered Calls";
  if (!AnsweredPending) {
    number = CutDialledNumber(settings, CurrentLine);
    if (!IsValidNumber(number)) {
      Connected = false;
      return;
    }
  }
  OpenConnection(number);
  OpenSlot(number);
  if (result.TotalsCount >= settings.MaxServices) {
    TellLimit("Services");
    result.ServicesExceeded = true;
  }
  LastService = CurrentService;
}

}  // namespace qel
