#include "maintenance/Optimize.h"

#include "core/Surroundings.h"
#include "modemlog/LineClassifier.h"
#include "values/CodePage.h"

namespace qel {

// Where a dialled number begins, counted from 0: behind date, time and the driver's words.
static constexpr std::size_t NumberPlace = 25;

void DoOptimize(const LogInHand& inHand, const Settings& settings, bool isArchive) {
  SetTrace("QELOptimize", "DoOptimize");
  const LogTool optimize{.WorkingName = "ModemLog.opt",
                         .SafetyCopyName = isArchive ? ArchiveSafetyCopyName : SafetyCopyName,
                         .Doing = "Optimizing",
                         .Finished = "Finished Optimizing Modem Log File!",
                         .FailureTitle = "Optimization Failed",
                         .FailureText = "QEL was unable to optimize your modem log file!"};
  const LineClassifier classifier(ResponsesOf(settings));
  RunTool(optimize, inHand, [&classifier](std::string_view line) -> std::optional<std::string> {
    const unsigned classes = classifier.ClassesOf(line);
    if (line.empty() || classes == NoClass) return std::nullopt;
    std::string capitals = UpperCase(line);
    const bool hasNumber = capitals.find_first_of("0123456789", NumberPlace) != std::string::npos;
    if (classes & DialLine && !hasNumber) return std::nullopt;
    return capitals;
  });
}

}  // namespace qel
