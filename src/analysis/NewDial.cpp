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
  IgnoreErrors([] { ++analysis.ConnectionCount; });
  if (analysis.ConnectionCount >= settings.MaxConnections) {
    analysis.ConnectionsExceeded = true;
    TellLimit("Connections");
  }
  IgnoreErrors([&] {
    ConnectionRecord& connection = analysis.Connections[analysis.ConnectionCount];
    connection.Number = AnsweredPending ? AnsweredNumber : number;
    if (AnsweredPending) connection.Answered = true;
  });
}

// The first slot that has the number or whose service has it. The first free slot is looked at too, so an
// empty number takes it without counting it.
Int16 FindSlot(const std::string& number) {
  for (Int16 i = 1; i <= analysis.TotalsCount + 1; ++i) {
    const ServiceTotal& slot = analysis.ServiceTotals[i];
    if (Trim(slot.Number) == number || Trim(slot.AltNumber) == number) return i;
  }
  return 0;
}

void OpenSlot(const std::string& number) {
  IgnoreErrors([&] { CurrentService = FindSlot(number); });
  if (CurrentService > 0) return;
  CurrentService = analysis.TotalsCount + 1;
  IgnoreErrors([&] {
    ServiceTotal& slot = analysis.ServiceTotals[CurrentService];
    slot.Number = number;
    slot.AltNumber = GetAltNumber(number);
    slot.Blocks = 0;
  });
  analysis.TotalsCount = CurrentService;
}

}  // namespace

void NewDial() {
  CurrentService = 0;
  analysis.ServicesExceeded = false;
  analysis.ConnectionsExceeded = false;
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
  if (analysis.TotalsCount >= settings.MaxServices) {
    TellLimit("Services");
    analysis.ServicesExceeded = true;
  }
  LastService = CurrentService;
}

}  // namespace qel
