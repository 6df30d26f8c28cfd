#include "cli/CommandLineHost.h"

#include <iostream>

#include "core/Surroundings.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// The lines of a message text, empty ones left out, whatever control characters divide them.
std::string IndentedLines(const std::string& text) {
  std::string lines, line;
  for (const char c : text + "\n") {
    if (c != '\r' && c != '\n') {
      line += c;
    } else if (!line.empty()) {
      lines += "  " + line + "\n";
      line.clear();
    }
  }
  return lines;
}

// What a user can do about a number that grew too large.
std::string Advice(const RunTimeError& error) {
  if (error.Number() != Overflow && error.Number() != SubscriptOutOfRange) return "";
  const Surroundings& here = CurrentSurroundings();
  if (here.ModuleTrace == "QELAnalyse" || here.ModuleTrace == "ReportRun" || here.ModuleTrace == "HtmlReport")
    return "; choose a shorter period with --from and --to";
  return here.ProcedureTrace == "CheckCorruption" ? "; name the log with --log, which takes any size" : "";
}

}  // namespace

void Complain(const std::string& line) { std::cerr << "qelreport: " << line << '\n'; }

Answer CommandLineHost::MessageBox(const Message& message) {
  Complain(ToUtf8(message.Title.empty() ? "WARNING" : message.Title));
  std::cerr << ToUtf8(IndentedLines(message.Text));
  switch (message.buttons) {
    case Buttons::OKCancel:
      return Answer::Cancel;
    case Buttons::AbortRetryIgnore:
      return Answer::Abort;
    case Buttons::YesNo:
      return Answer::No;
    default:
      return Answer::OK;
  }
}

Answer CommandLineHost::ErrorBox(const RunTimeError& error, const Message&) {
  std::string line = "error " + std::to_string(error.Number()) + ", " + error.Description();
  if (!error.Path().empty()) line += ": " + ShownPath(error.Path());
  const Surroundings& here = CurrentSurroundings();
  Complain(line + " (in " + ToUtf8(here.ModuleTrace + ", " + here.ProcedureTrace + ", " + here.StepTrace) +
           ")" + Advice(error));
  throw ProgramEnd();
}

}  // namespace qel
