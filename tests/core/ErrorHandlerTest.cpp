#include <gtest/gtest.h>
#include <memory>

#include "core/EndProgram.h"
#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "core/Version.h"
#include "platform/Files.h"
#include "platform/RegistryStore.h"
#include "support/Expected.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace qel {

namespace {

// A message as its user meets it, the default button starred.
std::string Shown(const Message& message) {
  const char* const icons[] = {"none", "critical", "question", "exclamation", "information"};
  const std::vector<std::string> buttons[] = {
      {"OK"}, {"OK", "Cancel"}, {"Abort", "Retry", "Ignore"}, {"Yes", "No"}};
  std::string text = "  \"" + message.Title + "\", " + icons[static_cast<int>(message.icon)] + ",";
  int place = 0;
  for (const auto& button : buttons[static_cast<int>(message.buttons)])
    text += " [" + button + (++place == message.DefaultButton ? "*]" : "]");
  text += message.HelpContext == 0 ? "\n" : " help " + std::to_string(message.HelpContext) + "\n";
  for (const char c : "    " + message.Text)
    text += c == '\r' ? "\\r" : c == '\n' ? "\n    " : std::string(1, c);
  return text + "\n";
}

class ErrorHandlerTest : public testing::Test {
 protected:
  ErrorHandlerTest() { ModuleTrace = "M", ProcedureTrace = "P", StepTrace = "S", OSName = "WIN 98"; }
  ScriptedHost host;
};

// Out of the optimizer's sight.
[[gnu::noipa]] FileStamp StampOrRaise(bool fails) {
  if (fails) Raise(FileNotFound);
  return {1, 2};
}

[[gnu::noipa]] FileStamp PassedOver(const FileStamp& before) {
  FileStamp stamp = before;
  IgnoreErrors([&] { stamp = StampOrRaise(true); });
  return stamp;
}

}  // namespace

TEST_F(ErrorHandlerTest, LeavesWhatAFailedAssignmentWouldHaveChanged) {
  EXPECT_TRUE((PassedOver({3, 4}) == FileStamp{3, 4}));
}

TEST_F(ErrorHandlerTest, EachErrorHasItsWordsButtonsAndResults) {
  std::string told;
  for (const int number : {10, 13, 52, 54, 55, 57, 61, 62, 64, 68, 70, 71, 75, 76}) {
    told += "error " + std::to_string(number) + ": OK, Cancel, Abort, Retry, Ignore, No =";
    for (const Answer answer :
         {Answer::OK, Answer::Cancel, Answer::Abort, Answer::Retry, Answer::Ignore, Answer::No}) {
      host.messages.clear();
      host.answers.assign(2, answer);
      told += " " + std::to_string(ErrorHandler(RunTimeError(number, "Disk", 5)));
    }
    told += "\n";
    for (const auto& message : host.messages) told += Shown(message);
  }
  ExpectFile("core/Errors.expected", told);
}

TEST_F(ErrorHandlerTest, OfAReportShownTwiceTheSecondAnswerCounts) {
  host.answers = {Answer::Abort, Answer::Cancel, Answer::Ignore, Answer::OK, Answer::OK, Answer::No};
  for (const int result : {1, 0, 3}) EXPECT_EQ(ErrorHandler(RunTimeError(13)), result);
  EXPECT_TRUE(host.messages[1].Text.starts_with(host.clipboard + "\r\nThe above information"));
  EXPECT_TRUE(host.clipboard.ends_with("\r\nOS: WIN 98\r\n")) << host.clipboard;
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

TEST_F(ErrorHandlerTest, SettingsThatCannotBeWrittenAreToldOnce) {
  const std::string key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL";
  const auto folder = std::make_unique<TemporaryFolder>();
  Registry.Open(folder->Path("none/registry.reg"), RegistryStore::Access::Shared);
  Registry.CreateKey(key);
  folder->Put("none", "");
  testing::internal::CaptureStderr();
  SaveRegistry();
  EXPECT_THROW(EndProgram(), ProgramEnd);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "qel: the settings could not be written: Path not found\n");
  Registry.Reset();
}

TEST(EndProgram, ClosesTheFiles) {
  const auto openFiles = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  ScriptedHost host;
  const auto before = openFiles();
  LineReader file("/dev/null");
  EXPECT_THROW(EndProgram(), ProgramEnd);
  EXPECT_EQ(openFiles(), before);
}

}  // namespace qel
