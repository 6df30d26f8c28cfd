// A fixture for qelreport as a process, with the log and the settings of tests/reports.
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

// Runs in a folder of its own, with a fresh home and no locale.
class Qelreport : public ::testing::Test {
 protected:
  Qelreport() {
    std::filesystem::create_directory(folder.Path("home"));
    std::filesystem::create_directory_symlink(QEL_SOURCE_DIR, folder.Path("source"));
    folder.Put("log", folder.Content("source/tests/reports/inputs/week.log"));
    folder.Put("week.reg", folder.Content("source/tests/reports/inputs/week.reg"));
  }

  Result Run(const std::string& arguments) const { return RunProgram("'" QELREPORT "' " + arguments); }

  Result RunProgram(const std::string& program) const {
    const std::string command = "cd " + folder.Path() + " && env -i HOME=home " + program;
    const int result = std::system((command + " >out 2>err").c_str());
    return {WIFEXITED(result) ? WEXITSTATUS(result) : -1, folder.Content("out"), folder.Content("err")};
  }

  void PutSettings(const std::string& name, const std::string& values) const {
    folder.Put(name, "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\General]\r\n" + values + "\r\n");
  }

  TemporaryFolder folder;
};

}  // namespace qel
