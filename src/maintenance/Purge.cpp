#include "maintenance/Purge.h"

#include "core/Surroundings.h"
#include "modemlog/LogLine.h"

namespace qel {

void DoPurge(const LogInHand& inHand, Date from, Date to) {
  SetTrace("frmPurge", "DoPurge");
  const LogTool purge{.WorkingName = "ModemLog.pge",
                      .SafetyCopyName = SafetyCopyName,
                      .Doing = "Purging",
                      .Finished = "Finished Purging Records!",
                      .FailureTitle = "Purge Failed",
                      .FailureText = "QEL was unable to purge your modem log file!"};
  RunTool(purge, inHand, [from, to](std::string_view line) -> std::optional<std::string> {
    const Date date = GetLineDate(line);
    if (date == 0 || (date >= from && date <= to)) return std::nullopt;
    return std::string(line);
  });
}

}  // namespace qel
