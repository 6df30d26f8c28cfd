// The command line of qelreport: one table holds the options, and parser, usage line and help are made from
// it.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "reports/WrittenReport.h"
#include "values/Calendar.h"

namespace qel {

struct Arguments {
  std::optional<std::string> log;  // file paths are the bytes that were given
  std::optional<std::string> settings;
  std::optional<Date> from;
  std::optional<Date> to;
  std::optional<ReportKind> report;  // has one once the whole line is taken
  std::vector<std::string> compare;  // settings to price under too
  OutputFormat format = OutputFormat::Text;
  Explaining explain;
  std::optional<std::string> output;
  std::optional<std::string> import;
  bool stats = false;
  bool check = false;
  bool follow = false;
  bool help = false;
  bool version = false;
};

// What is wrong with a command line, in one line for the user.
class ArgumentError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Takes "--option value" and "--option=value"; of an option given twice the last one counts, but of
// --compare all do. A value that may be left out is a number, so that it is told from what follows. Raises
// ArgumentError.
Arguments ParseArguments(const std::vector<std::string>& words);

// "usage: qelreport [--log FILE] ...", in lines of a terminal's width.
std::string UsageText();

// The usage and a line or two on every option.
std::string HelpText();

}  // namespace qel
