#include <gtest/gtest.h>

#include "core/EndProgram.h"
#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "core/Version.h"
#include "support/ScriptedHost.h"

namespace qel {

struct ErrorHandlerTest : testing::Test {
  ErrorHandlerTest() { ModuleTrace = "M", ProcedureTrace = "P", StepTrace = "S", OSName = "WIN 98"; }
  ScriptedHost host;
};

TEST_F(ErrorHandlerTest, EachDiskErrorHasItsWordsAndButtons) {
  const Buttons OK = Buttons::OK, OKCancel = Buttons::OKCancel, All = Buttons::AbortRetryIgnore;
  const std::tuple<int, Buttons, std::string> cases[] = {
      {52, All, "That filename is illegal."},
      {54, OK, "Can't open your file for that type of access."},
      {55, OK, "\nThis file is already open."},
      {57, OK, "Internal disk error."},
      {61, All, "Disk is full. Continue?"},
      {62, All, "Module: M\r\nSub: P\r\nRef: S\r\nVerion: " + VersionText() + "\r\nOS: WIN 98\r\nThis"},
      {64, All, "That filename is illegal."},
      {68, OKCancel, "That device appears unavailable."},
      {70, OK, "QEL cannot gain access to your modem log file!\r\n\r\nEither another application or"},
      {71, OKCancel, "Insert a disk in the drive and close the door."},
      {75, OK, "QEL cannot gain access to a file!\r\n\r\nAnother application or Windows process is"},
      {76, All, "That path doesn't exist."},
  };
  for (const auto& [number, buttons, text] : cases) {
    const bool fatal = number == 70 || number == 75;
    host.answers = {Answer::Retry};
    EXPECT_EQ(ErrorHandler(RunTimeError(number)), fatal ? 3 : 0) << number;
    const Message& shown = host.messages.back();
    EXPECT_EQ(shown.Text.substr(0, text.size()), text);
    EXPECT_EQ(shown.Title, !fatal ? "Disk Error" : number == 70 ? "QEL - Lock Error" : "QEL - Access Error");
    EXPECT_EQ(shown.icon, fatal ? Icon::Critical : Icon::Exclamation) << number;
    EXPECT_EQ(shown.buttons, buttons) << number;
  }
}

TEST_F(ErrorHandlerTest, AReportIsShownTwiceAndTheSecondAnswerCounts) {
  host.answers = {Answer::Abort, Answer::Cancel, Answer::Ignore, Answer::OK, Answer::OK, Answer::No};
  for (const int result : {1, 0, 3}) EXPECT_EQ(ErrorHandler(RunTimeError(13, "Disk", 5)), result);
  const std::string report =
      "An Error has occurred during processing.\r\n\r\nIf you receive this error often then please note the"
      "\r\nfollowing details and report them to QEL Technical\r\nSupport by emailing support@qel.example.\r\n"
      "\r\nError code: 13\r\nDescription: Type mismatch\r\nLast DLL Error: 5\r\nModule: M\r\nSub: P\r\n";
  EXPECT_EQ(host.clipboard, report + "Ref: S\r\nVersion: " + VersionText() + "\r\nOS: WIN 98\r\n");
  EXPECT_TRUE(host.messages[1].Text.starts_with(host.clipboard + "\r\nThe above information has been"));
  EXPECT_EQ(std::tuple(host.messages[0].HelpContext, host.messages[1].HelpContext), std::tuple(92, 0));
  EXPECT_EQ(host.messages[0].Title + ", " + host.messages[1].Title, "Disk - Error, QEL");
}

TEST_F(ErrorHandlerTest, AStatementIsRepeatedSkippedOrEndsTheProgram) {
  int runs = 0;
  const auto failing = [&runs] { ++runs, Raise(DiskFull); };
  host.answers = {Answer::Retry, Answer::Retry, Answer::Ignore, Answer::Abort};
  EXPECT_FALSE(Attempt(failing));
  EXPECT_EQ(runs, 3);
  EXPECT_THROW(Attempt(failing), ProgramEnd);
  EXPECT_FALSE(Attempt([] { Raise(10); }));
  EXPECT_EQ(host.messages.size(), 4u) << "error 10 is passed over without a word";
}

}  // namespace qel
