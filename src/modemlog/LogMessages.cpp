#include "modemlog/LogMessages.h"

#include <initializer_list>
#include <string>

#include "core/Surroundings.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr int MissingLogHelp = 6;

std::string Lines(std::initializer_list<std::string> lines) {
  std::string text;
  for (const auto& line : lines) text += (text.empty() ? "" : NewLine) + line;
  return text;
}

}  // namespace

void ShowLogMissing() {
  const std::string text = Lines({
      "Qelmark Cannot Locate Your Modem Log File!",
      "",
      "If you have configured your dial-up connections to use a modem log",
      "then you should re-check your QEL options as they are INCORRECT.",
      "",
      "If NOT, then you will need to configure your Dial-up Networking ",
      "connections to use a modem log file before Qelmark is fully",
      "functional.",
      "",
      "Click on the Help button below for information on how to do this.",
      "",
      "NOTE: If you are sure that your settings are correct but have not yet",
      "made any dial-up networking connections (such as the Internet)",
      "then please exit QEL now and try again after you have disconnected",
      "from your next dial-up networking session.",
  });
  MsgBox({text, "No Modem Log Detected!", Icon::Exclamation, Buttons::OK, MissingLogHelp});
}

void ShowLogCorrupt() {
  const std::string text = Lines({
      "Corruption Detected in Modem Log File!",
      "",
      "Your Modem Log File is either corrupt or not a valid",
      "Modem Log!  If you are sure it is a valid Modem Log then ",
      "please select the 'Repair Modem Log' option from the",
      "TOOLS menu. Reports will not be available until corruption",
      "has been repaired or a valid log file is set up!",
  });
  MsgBox({text, "WARNING", Icon::Critical});
}

void ShowLogInvalid(bool timesForDates) {
  const std::string heading = "INVALID MODEM LOG FILE!";
  const std::string text =
      timesForDates
          ? Lines({heading, "", std::string("No report can be made of this log: ") + WhyTimesForDates + "."})
          : Lines({heading, "", "The current file is NOT a Modem Log File.",
                   "Please review your configuration by clicking ", "on 'QEL Options' in the 'File' menu."});
  MsgBox({text, "WARNING", Icon::Critical});
}

void ShowLogTooBig() {
  const std::string text = Lines({
      "Your Modem Log is Too Big!",
      "",
      "Your modem log can become unreliable and prone to",
      "corruption if it is allowed to become too large. Select",
      "one of the options in the TOOLS menu or ARCHIVE",
      "this log to prevent it from growing any larger.",
  });
  MsgBox({text, "WARNING", Icon::Exclamation});
}

}  // namespace qel
