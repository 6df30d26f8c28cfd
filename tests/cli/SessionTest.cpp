// What a user at a shell types and reads, as files. Each line behind "$ " is run; below it stands what it
// wrote, behind
// "! " where it was standard error, and behind "= " its status, unless that is 0. QEL_ACCEPT=1 makes them
// anew.
#include <sstream>

#include "cli/Qelreport.h"
#include "support/Expected.h"

namespace qel {

namespace {

// The lines of a text, each behind `mark`; a carriage return is shown.
std::string Shown(const std::string& text, const std::string& mark) {
  std::istringstream lines(text);
  std::string shown;
  for (std::string line; std::getline(lines, line);) {
    const bool returns = line.ends_with('\r');
    if (returns) line.back() = '\\';
    shown += mark + line + (returns ? "r" : lines.eof() ? "\\" : "") + "\n";
  }
  return shown;
}

class Session : public Qelreport, public ::testing::WithParamInterface<const char*> {
 protected:
  std::string Play(const std::string& session) const {
    std::istringstream lines(session);
    std::string played;
    for (std::string line; std::getline(lines, line);) {
      const bool command = line.starts_with("$ ");
      if (command || line.starts_with('#') || line.empty()) played += line + "\n";
      if (!command) continue;
      const Result run = Run(line.substr(2));
      played += Shown(run.out, "  ") + Shown(run.err, "! ");
      if (run.status != 0) played += "= " + std::to_string(run.status) + "\n";
    }
    return played;
  }
};

std::string NameOf(const ::testing::TestParamInfo<const char*>& session) { return session.param; }

}  // namespace

TEST_P(Session, IsAsBefore) {
  const std::string file = std::string("cli/") + GetParam() + ".session";
  ExpectFile(file, Play(folder.Content("source/tests/" + file)));
}

INSTANTIATE_TEST_SUITE_P(Of, Session, ::testing::Values("refusals", "reports", "import", "check"), NameOf);

}  // namespace qel
