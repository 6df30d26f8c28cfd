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

}  // namespace
}  // namespace qel
