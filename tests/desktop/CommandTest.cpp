// qel as a process that opens no window, and what the documents tell of it.
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "support/TemporaryFolder.h"

namespace qel {

TEST(Command, AnswersWithoutADisplay) {
  const TemporaryFolder folder;
  const std::string usage = "usage: qel [--help] [--version]\n";
  const std::string help =
      usage +
      "\nOpens the program's windows; logs, reports and settings are opened from its File menu.\n"
      "qelreport gives the same reports to scripts.\n\n"
      "  --help     print this help, as -h does\n  --version  print the version\n";
  const std::string noDisplay =
      "qel: there is no display to open a window on; qelreport makes the reports without one\n";
  const struct {
    std::string run;
    int status;
    std::string out, err;
  } cases[] = {
      {QEL " --version", 0, "qel 1.0.0\n", ""},
      {QEL " --help", 0, help, ""},
      {QEL " -h", 0, help, ""},
      {QEL " --foo", 2, "", "qel: unknown argument '--foo'\n" + usage},
      {QEL, 1, "", noDisplay},
      {"DISPLAY=:4711 " QEL, 1, "", noDisplay},
      {"WAYLAND_DISPLAY=none QT_QPA_PLATFORM=xcb " QEL, 1, "", noDisplay},
  };
  for (const auto& c : cases) {
    const int result =
        std::system(("cd " + folder.Path() + " && env -i HOME=. " + c.run + " >out 2>err").c_str());
    EXPECT_EQ(WIFEXITED(result) ? WEXITSTATUS(result) : -1, c.status) << c.run;
    EXPECT_EQ(folder.Content("out"), c.out) << c.run;
    EXPECT_EQ(folder.Content("err"), c.err) << c.run;
  }
  std::filesystem::create_directory_symlink(QEL_SOURCE_DIR, folder.Path("source"));
  EXPECT_NE(folder.Content("source/README.md").find("    qel [--help] [--version]\n"), std::string::npos);
  EXPECT_NE(folder.Content("source/share/man/qel.1").find(".Op Fl -help\n.Op Fl -version\n"),
            std::string::npos);
}

}  // namespace qel
