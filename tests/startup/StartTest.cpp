#include "startup/QELMain.h"
#include "support/WindowTest.h"

namespace qel {

class StartTest : public WindowTest {};

// The rest of the start is told by journeys, which do not see what goes by.
TEST_F(StartTest, TheSplashWindowTellsEachStepAndEscapeLeavesAConflictAsItIs) {
  class : public ScriptedHost {
    void Paint() override { told += SplashForm->SplashLabel1.Caption() + "\n"; }

   public:
    std::string told;
  } painted;
  folder.Put("ModemLog.txt", usable);
  const std::string modem = "HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\Class\\Modem\\0000";
  folder.Put("registry.reg", "REGEDIT4\n[" + modem + "]\n\"DriverDesc\"=\"Internal\"\n\"Logging\"=hex:01\n" +
                                 "\"UserInit\"=\"E1\"\n\"LoggingPath\"=\"/elsewhere/Active.txt\"\n" +
                                 "[HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\General]\n\"ModemLogDir\"=\"" +
                                 folder.Path() + "/\"\n\"ModemLogFile\"=\"ModemLog.txt\"\n");
  painted.answers = {Answer::No};
  StartProgram();
  EXPECT_EQ(painted.told,
            "\nReading Regional Settings\nReading User Configuration\nPlease Wait . . . Checking Modem Log\n"
            "Please Wait .....Loading 100%\n");
  ASSERT_EQ(painted.messages.size(), 1u);
  EXPECT_EQ(painted.messages[0].EscapeButton, 2);
  EXPECT_EQ(CurrentLogPath, folder.Path("ModemLog.txt"));
  SetHost(host);
}

}  // namespace qel
