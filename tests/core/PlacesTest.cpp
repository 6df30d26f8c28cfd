// Where the program finds its files, its log and its settings, and what it brings to its folder.
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "core/Installation.h"
#include "core/Places.h"
#include "modemlog/LogFile.h"
#include "platform/Files.h"
#include "support/Cases.h"
#include "support/Expected.h"
#include "support/FailingDisk.h"
#include "support/TemporaryFolder.h"

namespace qel {
namespace {

TEST(Places, ComeFromTheEnvironment) {
  for (const auto& [given, places] : Cases<2>("core/Places")) {
    for (const char* name : {"QEL_HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "WinDir"}) unsetenv(name);
    std::istringstream variables(given);
    for (std::string name, value; std::getline(variables >> std::ws, name, '=') && variables >> value;)
      setenv(name.c_str(), value.c_str(), 1);
    const Places read = ReadEnvironment();
    EXPECT_EQ(read.AppPath + " " + read.HelpFile + " " + read.WindowsDir + " " + read.DefaultLogFile + " " +
                  read.DefaultLogDir + " " + read.OSName + " " + SettingsStorePath(),
              places);
  }
  unsetenv("QEL_HOME");
}

// What came of the files at home, and what was said about it, when a disk copies what is missing there.
std::string Copied(FailingDisk& disk, int failing) {
  const TemporaryFolder folder;
  for (const char* name : {"home", "near", "far"}) MakeFolders(folder.Path(name));
  for (const char* file :
       {"home/readme.htm", "near/QEL.HLP", "near/readme.htm", "far/QEL.HLP", "far/QelTips.txt"})
    folder.Put(file, file);
  const DiskInPlace inPlace(disk);
  disk.FailNth(failing);
  testing::internal::CaptureStderr();
  CopyMissingFiles({folder.Path("none"), folder.Path("near"), folder.Path("far")}, folder.Path("home"));
  std::string told;
  for (const std::string name : {"QEL.HLP", "QelTips.txt", "readme.htm", "exceeded.wav"})
    told += folder.Has("home/" + name) ? folder.Content("home/" + name) + ";" : "no " + name + ";";
  std::string said = testing::internal::GetCapturedStderr();
  if (!said.empty()) said.replace(said.find(folder.Path()), folder.Path().size(), "~");
  return told + "\n" + said;
}

TEST(Installation, BringsWhatIsMissingAndAFailureCostsOneFileAtMostAndALineOnStandardError) {
  FailingDisk disk;
  std::set<std::string> told;
  for (int n = 1; n == 1 || disk.Failed(); ++n) {
    const std::string copied = Copied(disk, n);
    EXPECT_EQ(disk.Failed(), copied.ends_with("could not be made: Device I/O error\n")) << "operation " << n;
    told.insert(copied);
  }
  std::string all;
  for (const auto& copied : told) all += copied;
  ExpectFile("core/Installation.expected", all);
}

TEST(Installation, AProgramLooksBesideItself) {
  ASSERT_EQ(InstalledFolders().size(), 2u);
  const std::string self = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  EXPECT_EQ(InstalledFolders().front(), self + "/../share/qel");
}

}  // namespace
}  // namespace qel
