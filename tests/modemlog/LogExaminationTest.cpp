// What an examination finds of a log, told by logs.statistics.
#include "core/Surroundings.h"
#include "journeys/Script.h"
#include "modemlog/LogExamination.h"
#include "support/AnsweringHost.h"
#include "support/Cases.h"
#include "support/FreshProgram.h"
#include "support/Listener.h"
#include "support/Text.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"

namespace qel {

class LogExaminationTest : public FreshProgram {
 protected:
  // All that is known of the log.
  std::string Known() const {
    const auto day = [](Date date) { return date == 0 ? "none" : FormatDate(date, "yyyy-mm-dd"); };
    std::string text = LengthText(findings.LogLength) + ", " + NumberText(findings.LogEntries) +
                       " entries, " + day(findings.FirstEntryDate) + " to " + day(findings.LastEntryDate) +
                       ":";
    for (const auto& [flag, word] :
         {std::pair(findings.LogExists, " there"), std::pair(findings.LogCorrupt, " corrupt"),
          std::pair(findings.LogEmpty, " empty"), std::pair(findings.LogInvalid, " invalid"),
          std::pair(findings.LogTooBig, " big")})
      if (flag) text += word;
    return text;
  }

  // Finds it anew where the opposite was known before.
  void Find(const Act& act) {
    findings.LogLength = 7;
    findings.LogEntries = 7;
    findings.FirstEntryDate = findings.LastEntryDate = 7;
    findings.LogCorrupt = findings.LogEmpty = findings.LogInvalid = findings.LogTooBig = true;
    const std::string known = act.WordOr(1, "");
    session->Examine(act.Words[0] == "load" ? LogHealth::UnknownTold
                     : known == "sound"     ? LogHealth::Sound
                     : known == "corrupt"   ? LogHealth::Corrupt
                                            : LogHealth::Unknown);
  }

  std::vector<std::string> Told(const Act& act, std::vector<Answer> answers) {
    int yields = 0;
    const Meanwhile<std::function<void()>> counted(host.yielded, [&yields] { ++yields; });
    host.pointer = MousePointer::Default;
    host.AnswerErrors(std::move(answers));
    listener.said.clear();
    Find(act);
    std::vector<std::string> told = listener.said;
    told.push_back(Known() + (host.pointer == MousePointer::Default ? "" : " busy"));
    told.push_back("at " + CurrentSurroundings().ProcedureTrace + ", yields " + std::to_string(yields));
    return told;
  }

  // What goes on behind an error is told; repeated, it fails again and goes on then, or ends the program.
  void Play(Act& act) {
    const std::string& what = act.Words[0];
    if (what == "most") return void(settings.MaxLogSize = std::stoi(act.Word(1)));
    if (what == "remove") return folder.Empty();
    if (what == "log") {
      folder.Put("test.log",
                 Unfolded(act.Word(1), std::stoi(act.WordOr(2, "1"))) + Unfolded(act.WordOr(3, "")));
      return session->SetCurrentLog(folder.Path("test.log"));
    }
    act.Now = Told(act, {Answer::Ignore});
    const std::vector<std::string> errors = host.errors;
    if (!errors.empty()) {
      EXPECT_EQ(Told(act, {Answer::Retry, Answer::Retry, Answer::Ignore}), act.Now);
      EXPECT_THROW(Told(act, {Answer::Abort}), ProgramEnd);
    }
    act.Now.insert(act.Now.end(), errors.begin(), errors.end());
  }

  AnsweringHost host;
  Listener listener;
  const Meanwhile<Display*> here{CurrentSurroundings().Display, &listener};
};

TEST_F(LogExaminationTest, AnExaminationFindsAllThereIsToKnow) {
  ExpectScript("modemlog/logs.statistics", [this](Act& act) { Play(act); });
}

TEST_F(LogExaminationTest, AByteThatNoTextHoldsIsCorruptionUnlessItIsTheLast) {
  for (int byte = 0; byte < 256; ++byte) {
    const bool isText = (byte >= 32 && byte < 127) || byte == '\t' || byte == '\n' || byte == '\r';
    OpenLog({static_cast<char>(byte), 'a'});
    session->Examine(LogHealth::Unknown);
    EXPECT_EQ(findings.LogCorrupt, !isText) << byte;
  }
  LineReader left(logFile.CurrentLogPath);
  const std::size_t length = 2 * BlockSize + 3;
  for (const std::size_t place : {std::size_t{0}, BlockSize - 1, BlockSize, length - 2, length - 1}) {
    std::string log(length, 'x');
    log[place] = '\0';
    folder.Put("test.log", log);
    session->Examine(LogHealth::Unknown);
    EXPECT_EQ(findings.LogCorrupt, place < length - 1) << place;
  }
  std::string_view line;
  EXPECT_THROW(left.Next(line), RunTimeError) << "open files are closed";
}

TEST_F(LogExaminationTest, TheLastEntryIsFoundHoweverFarFromTheEndItBegins) {
  for (const std::size_t length : {std::size_t{0}, BlockSize - 12, BlockSize - 11, 9 * BlockSize})
    for (const std::string& end : {std::string("\n"), std::string(length, '\n'), std::string(length, ' ')}) {
      OpenLog("01-05-1999 A\n01-06-1999" + std::string(length, ' ') + "B\n" + end);
      EXPECT_EQ(findings.LastEntryDate, findings.FirstEntryDate + 1) << length;
      EXPECT_EQ(findings.LogEntries, 2);
      session->Examine(LogHealth::Sound, EntryCount::NotWanted);
      EXPECT_EQ(findings.LastEntryDate, findings.FirstEntryDate + 1) << length;
      EXPECT_EQ(findings.LogEntries, 0);
    }
}

TEST_F(LogExaminationTest, OfANewLogNothingIsKnown) {
  findings.LogExists = findings.LogCorrupt = findings.LogTooBig = findings.LogEmpty = findings.LogInvalid =
      true;
  session->SetCurrentLog("/a/b.log");
  EXPECT_EQ(logFile.CurrentLogDir + " " + logFile.CurrentLogFile + " " + logFile.CurrentLogPath,
            "/a/ b.log /a/b.log");
  EXPECT_FALSE(findings.LogExists || findings.LogCorrupt || findings.LogTooBig || findings.LogEmpty ||
               findings.LogInvalid);
}

TEST_F(LogExaminationTest, LengthsReadInKilobytesUntilSixteenBitsAreFull) {
  for (const auto& c : Cases("modemlog/Lengths")) EXPECT_EQ(LengthText(std::stoll(c[0])), c[1]);
}

}  // namespace qel
