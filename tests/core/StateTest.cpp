#include <gtest/gtest.h>

#include "core/OSVersion.h"
#include "core/ProgramState.h"

namespace qel {

namespace {

std::string Places() {
  ReadEnvironment();
  return AppPath + " " + HelpFile + " " + WindowsDir + " " + DefaultLogFile + " " + DefaultLogDir + " " +
         OSName + " " + SettingsStorePath();
}

}  // namespace

TEST(State, PlacesComeFromTheEnvironment) {
  for (const char* name : {"QEL_HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "WinDir"}) unsetenv(name);
  setenv("HOME", "/h", 1);
  EXPECT_EQ(Places(),
            "/h/.local/share/qel /h/.local/share/qel/QEL.HLP /h/ ModemLog.txt /h/  XX "
            "/h/.config/qel/registry.reg");
  setenv("XDG_DATA_HOME", "/d", 1);
  setenv("XDG_CONFIG_HOME", "/c", 1);
  setenv("WinDir", "/w", 1);
  EXPECT_EQ(Places(), "/d/qel /d/qel/QEL.HLP /w/ ModemLog.txt /w/  XX /c/qel/registry.reg");
  setenv("QEL_HOME", "/q", 1);
  EXPECT_EQ(Places(), "/q /q/QEL.HLP /w/ ModemLog.txt /w/  XX /q/registry.reg");
  unsetenv("QEL_HOME");
}

TEST(State, ANewLogIsUnknown) {
  LogExists = LogCorrupt = LogTooBig = LogEmpty = LogInvalid = true;
  SetCurrentLog("/a/b.log");
  EXPECT_EQ(CurrentLogDir + " " + CurrentLogFile + " " + CurrentLogPath, "/a/ b.log /a/b.log");
  EXPECT_FALSE(LogExists || LogCorrupt || LogTooBig || LogEmpty || LogInvalid);
}

TEST(State, SystemsAreNamedByTheirBuild) {
  std::string names;
  for (const PlatformId platform : {PlatformId::Win, PlatformId::NT, PlatformId::Other})
    for (const int build : {950, 951, 1111, 1381, 1998, 2000}) names += SystemName(platform, build) + ",";
  EXPECT_EQ(names,
            "WIN 95,WIN S1,WIN O2,WIN 40,WIN 98,WIN XX,NT 95,NT S1,NT O2,NT 40,NT 98,NT XX, 95, S1, O2, 40, "
            "98, XX,");
}

}  // namespace qel
