#include "support/FreshProgram.h"
#include "support/ModemStore.h"
#include "wizard/QELPreConfigure.h"

namespace qel {
namespace {

using Modem = StoredModem;

class ModemTest : public FreshProgram {
 protected:
  ModemTest() {
    DefaultLogDir = folder.Path() + "/";
    DefaultLogFile = "ModemLog.txt";
  }
  static void StoreOnly(const std::vector<Modem>& modems) {
    Registry.Reset();
    for (const auto& modem : modems) Store(modem);
  }
  // What the start makes of a store: "wizard", or the folder and name of the active log.
  static std::string Start(const std::vector<Modem>& modems, int preferred = 0) {
    StoreOnly(modems);
    PreferredModem = preferred;
    ActiveLogFile = ActiveLogDir = "";
    const bool opens = PreConfigure(false);
    EXPECT_EQ(ModemConfigOK, !opens);
    return opens ? "wizard" : ActiveLogDir + "|" + ActiveLogFile;
  }
  // A modem's values after the change.
  static std::string Changed(const Modem& modem) {
    StoreOnly({modem});
    PreConfigure(true);
    const bool logging = Modems[0].Logging;
    DoChange(1);
    EXPECT_TRUE(ModemConfigOK && Modems[0].Logging == logging) << "the record stays";
    return ModemValues(modem.Key);
  }

  const std::string first = "\\Modem\\0000", second = "\\Modem\\0001";
  const std::string path = folder.Path("ModemLog.txt");
  const Modem good{first, "Internal 33600", "/log/a.txt", true, "ats0=0e1"}, bad{second};
};

TEST_F(ModemTest, ModemsAreFoundWhereTheDriverKeepsThem) {
  const auto found = [](const std::vector<Modem>& modems) {
    StoreOnly(modems);
    for (const auto& modem : modems) {
      SetModemText(modem.Key, "ConfigDialog", modem.DriverDesc == "LPT" ? "lpt.dll" : "MoDemUI.dll");
      SetModemText(modem.Key, "AttachedTo", "COM2");
    }
    PreConfigure(false);
    std::string all;
    for (int i = 0; i < ModemCount; ++i) all += Modems[i].DriverDesc + Modems[i].AttachedTo + " ";
    return all;
  };
  const Modem port{"\\Ports\\0000", "port"};
  EXPECT_EQ(found({{second, "b"}, port}), "port ") << "a gap ends the modems, not the ports";
  EXPECT_EQ(found({{first, "Cable between 2 PCs"}, {second, "b"}}), "bCOM2 ");
  EXPECT_EQ(found({{"\\Ports\\0000", "LPT"}, {"\\Ports\\0001", "port"}}), "port ");
  std::vector<Modem> eleven = {port};
  for (int i = 0; i < 11; ++i) eleven.push_back({"\\Modem\\" + PadLeft(std::to_string(i), '0', 4), "m"});
  EXPECT_EQ(found(eleven).size(), 10 * std::string("mCOM2 ").size());
}

TEST_F(ModemTest, NoModemIsToldOnlyToAUserWhoAsks) {
  EXPECT_FALSE(PreConfigure(false));
  EXPECT_TRUE(host.messages.empty());
  EXPECT_FALSE(PreConfigure(true));
  EXPECT_EQ(host.messages.at(0).Text, "Sorry .... QEL was unable to detect your modem(s).");
}

TEST_F(ModemTest, TheStartIsQuietWhenWhatItLooksAtIsSetUp) {
  EXPECT_EQ(Start({good}), "/log/|a.txt");
  EXPECT_EQ(Start({good, bad}), "wizard");
  EXPECT_EQ(Start({good, bad}, 1), "/log/|a.txt");
  EXPECT_EQ(Start({good, bad}, 2), "wizard");
  EXPECT_EQ(Start({good, {second, "b", "/other/b.txt", true, "E1"}}, 2), "|b.txt") << "no folder";
  EXPECT_EQ(Start({good}, 3), "wizard");
  EXPECT_EQ(Start({{first, "a", "", true, "E1"}}), "wizard");
  EXPECT_EQ(Start({{first, "a", "/a.txt", false, "E1"}}), "wizard");
  EXPECT_EQ(Start({{first, "a", "/a.txt", true, "E0"}}), "wizard");
  EXPECT_EQ(Start({{first, "a", "C:\\LOGS\\a.txt", true, "AT&FE1V1"}}), "C:\\LOGS\\|a.txt");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(Start({good}, 11), "|") << "an error that the start outlives";
  EXPECT_FALSE(host.messages.empty());
}

TEST_F(ModemTest, AChangeWritesWhatIsMissingAndNothingElse) {
  const std::string setUp = "DriverDesc=a;Logging=1;LoggingPath=" + path + ";UserInit=";
  EXPECT_EQ(Changed({first, "a"}), setUp + "E1;");
  EXPECT_EQ(Changed({first, "a", "", true, "e1"}), setUp + "e1;");
  EXPECT_EQ(Changed({first, "a", path, false, "E1"}), setUp + "E1;");
  EXPECT_EQ(Changed({first, "a", path, true, "ate0"}), setUp + "ATE0E1;");
  EXPECT_EQ(Registry.Query(KeyPath(SettingsRoot, ModemClass + first), "Logging")->Data, "\x01");
}

TEST_F(ModemTest, AModemThatIsNotThePreferredOneKeepsWhatItHas) {
  PreferredModem = 2;
  for (const bool interactive : {true, false}) {
    StoreOnly({{first, "a", path, true, "AT&F"}, {second, "b"}});
    EXPECT_TRUE(PreConfigure(interactive));
    DoChange(1);
    EXPECT_EQ(ModemValues(first), "DriverDesc=a;Logging=1;LoggingPath=" + path + ";UserInit=AT&FE1;");
    StoreOnly({{first, "a"}, {second, "b", path, true, "E1"}});
    EXPECT_EQ(PreConfigure(interactive), interactive);
    EXPECT_TRUE(ModemConfigOK) << "the others decide nothing";
  }
}

TEST_F(ModemTest, TheChangedModemGetsALog) {
  folder.Put("first.log", "kept");
  const struct {
    const char *what, *system;
    std::string firstPath, secondPath, log;
    bool isNew;
  } cases[] = {
      {"without a path", "WIN 95", "", "", "ModemLog.txt", true},
      {"by now there is a file", "WIN 95", "", "", "ModemLog.txt", false},
      {"a log a modem", "WIN 98", "", "", "Second modem.log", true},
      {"the first modem's log", "WIN 98", folder.Path("first.log"), folder.Path("own"), "first.log", false},
  };
  for (const auto& c : cases) {
    StoreOnly({{first, "First", c.firstPath}, {second, "Second modem", c.secondPath}});
    DefaultLogFile = "ModemLog.txt";
    OSName = c.system;
    PreConfigure(true);
    DoChange(2);
    EXPECT_EQ(NewLogStarted, c.isNew) << c.what;
    EXPECT_EQ(DefaultLogFile, c.log) << c.what;
    EXPECT_TRUE(folder.Has(c.log)) << c.what;
    const std::string path = c.secondPath.empty() ? folder.Path(c.log) : c.secondPath;
    EXPECT_NE(ModemValues(second).find("LoggingPath=" + path + ";"), std::string::npos) << c.what;
  }
  EXPECT_EQ(folder.Content("first.log"), "kept");
  EXPECT_FALSE(folder.Has("own"));
  ReadUserParameters();
  EXPECT_EQ(PreferredModem, 2) << "stored";
}

}  // namespace
}  // namespace qel
