// A fixture for qelreport at a shell, with the log and the settings of tests/reports.
#pragma once

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>

#include "support/TemporaryFolder.h"

namespace qel {

struct Result {
  int status;
  std::string out, err;
};

// Commands run in a folder of its own, with a fresh home and no locale. The file "rc" holds what they know.
class Qelreport : public ::testing::Test {
 protected:
  Qelreport() {
    std::filesystem::create_directory(folder.Path("home"));
    std::filesystem::create_directory_symlink(QEL_SOURCE_DIR, folder.Path("source"));
    folder.Put("log", folder.Content("source/tests/reports/inputs/week.log"));
    folder.Put("week.reg", folder.Content("source/tests/reports/inputs/week.reg"));
    folder.Put(
        "rc",
        "qelreport() { '" QELREPORT
        "' \"$@\"; }\n"
        "entry() { printf '03-01-1999 10:00:00.00 - %s\\r\\n' \"$1\"; }\n"
        "settings() { printf '%s\\r\\n' REGEDIT4 '[HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\General]' \"$@\"; }\n");
  }

  Result Run(const std::string& command) const {
    folder.Put("command", ". ./rc\n" + command + "\n");
    const std::string shell = "cd " + folder.Path() + " && env -i HOME=home PATH=/usr/bin:/bin sh command";
    const int result = std::system((shell + " >out 2>err").c_str());
    return {WIFEXITED(result) ? WEXITSTATUS(result) : -1, folder.Content("out"), folder.Content("err")};
  }

  TemporaryFolder folder;
};

}  // namespace qel
