// The modem driver of the time: what it writes into its log in the course of one call.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "makelog/LogOptions.h"
#include "makelog/LogWriter.h"
#include "makelog/Random.h"

namespace qel {

class ModemDriver {
 public:
  ModemDriver(const LogOptions& options, LogWriter& log, Random& random);

  // Writes a call that begins at `moment`: dialled or incoming, answered or not, ended by either side or cut
  // off without an end. Gives the moment at which the line is free again.
  Moment Call(Moment moment);

 private:
  // A line, `moments` after the one before.
  void Say(Moment moments, std::initializer_list<std::string_view> pieces);
  void OpenPort();
  void Dial();
  void GiveUp();
  void Connect();
  void Stay(int seconds);
  void HangUp(int seconds);
  int SecondsOnLine(bool incoming);

  const LogOptions& options;
  LogWriter& log;
  Random& random;
  Moment now = 0;
};

}  // namespace qel
