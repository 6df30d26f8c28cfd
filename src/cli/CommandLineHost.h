// The program's surroundings on the command line: messages go to standard error, nobody is there to answer,
// and an error dialogue ends the run.
#pragma once

#include <string>

#include "core/Display.h"
#include "platform/Host.h"

namespace qel {

class CommandLineHost : public Host, public Display {
 public:
  // Prints the message. No question is answered yes.
  Answer MessageBox(const Message& message) override;

  // Prints one line with the failure and where it happened, and throws ProgramEnd.
  Answer ErrorBox(const RunTimeError& error, const Message& message) override;

  void ShowReport() override { reportReady = true; }

  // Whether the analysis had a report to show.
  bool ReportReady() const { return reportReady; }

 private:
  bool reportReady = false;
};

// Prints "qelreport: " and a line of UTF-8 to standard error.
void Complain(const std::string& line);

}  // namespace qel
