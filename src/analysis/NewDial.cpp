#include "analysis/NewDial.h"

#include <string>

#include "analysis/QELAnalyse.h"
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"
#include "settings/Settings.h"
#include "values/CodePage.h"

namespace qel {

namespace {

void TellLimit(const std::string& things) {
  MsgBox({"Cannot Continue.... Exceeded Maximum Number of " + things + ".\r" + "Please increase the 'Max " +
              things + "' parameter in the QEL Options window.\r" + "The following report is incomplete!",
          "", Icon::Critical});
}

void OpenConnection(const std::string& number) {
  IgnoreErrors([] { ++ConnectionCount; });
  if (ConnectionCount >= MaxConnections) {
    ConnectionsExceeded = true;
    TellLimit("Connections");
  }
  IgnoreErrors([&] {
    ConnectionRecord& connection = Connections[ConnectionCount];
    connection.Number = AnsweredPending ? AnsweredNumber : number;
    if (AnsweredPending) connection.Answered = true;
  });
}

// The first slot that has the number or whose service has it. The first free slot is looked at too, so an
// empty number takes it without counting it.
Int16 FindSlot(const std::string& number) {
  for (Int16 i = 1; i <= TotalsCount + 1; ++i) {
    const ServiceTotal& slot = ServiceTotals[i];
    if (Trim(slot.Number) == number || Trim(slot.AltNumber) == number) return i;
  }
  return 0;
}

void OpenSlot(const std::string& number) {
  IgnoreErrors([&] { CurrentService = FindSlot(number); });
  if (CurrentService > 0) return;
  CurrentService = TotalsCount + 1;
  IgnoreErrors([&] {
    ServiceTotal& slot = ServiceTotals[CurrentService];
    slot.Number = number;
    slot.AltNumber = GetAltNumber(number);
    slot.Blocks = 0;
  });
  TotalsCount = CurrentService;
}

}  // namespace

void NewDial() {
  CurrentService = 0;
  ServicesExceeded = false;
  ConnectionsExceeded = false;
  std::string number = "Answered Calls";
  if (!AnsweredPending) {
    number = CutDialledNumber(CurrentLine);
    if (!IsValidNumber(number)) {
      Connected = false;
      return;
    }
  }
  OpenConnection(number);
  OpenSlot(number);
  if (TotalsCount >= MaxServices) {
    TellLimit("Services");
    ServicesExceeded = true;
  }
  LastService = CurrentService;
}

}  // namespace qel
