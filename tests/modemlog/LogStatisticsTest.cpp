#include "modemlog/LogStatistics.h"
#include "platform/FormatMask.h"
#include "platform/TextConversion.h"
#include "support/FreshProgram.h"

namespace qel {

class LogStatistics : public FreshProgram {
 protected:
  // All that is known of the log.
  std::string Found() const {
    const auto day = [](Date date) { return date == 0 ? "none" : FormatDate(date, "yyyy-mm-dd"); };
    std::string text = std::to_string(int{LogLength}) + " bytes, " + NumberText(LogEntries) + " entries, " +
                       day(FirstEntryDate) + " to " + day(LastEntryDate) + ":";
    for (const auto& [flag, word] :
         {std::pair(LogExists, " there"), std::pair(LogCorrupt, " corrupt"), std::pair(LogEmpty, " empty"),
          std::pair(LogInvalid, " invalid"), std::pair(LogTooBig, " big"),
          std::pair(host.pointer == MousePointer::Hourglass, " busy")})
      if (flag) text += word;
    return text;
  }
  // Finds all of it anew where the opposite was known before.
  std::string Examined(const std::string& log, LogHealth health = LogHealth::Unknown,
                       bool keepPointer = false) {
    folder.Put("test.log", log);
    SetCurrentLog(folder.Path("test.log"));
    LogLength = 7;
    LogEntries = 7;
    FirstEntryDate = LastEntryDate = 7;
    LogCorrupt = LogEmpty = LogInvalid = LogTooBig = true;
    host.pointer = MousePointer::Default;
    Examine(health, keepPointer);
    return Found();
  }
};

TEST_F(LogStatistics, AnExaminationFindsAllThereIsToKnow) {
  const std::string good = "01-05-1999 A\n01-06-1999 B\n";
  const struct {
    std::string log, found;
  } cases[] = {
      {"01-05-1999 A\r\n  \r\n\r\n01-06-1999 B", "32 bytes, 2 entries, 1999-01-05 to 1999-01-06: there"},
      {"no date\n01-05-1999 A\n", "21 bytes, 2 entries, 1999-01-05 to 1999-01-05: there"},
      {"01-05-1999 A\nno date\n", "21 bytes, 2 entries, 1999-01-05 to none: there invalid"},
      {"01-05-1999\n01-06-98", "19 bytes, 2 entries, 1999-01-05 to 1998-01-06: there"},
      {"01-05-1999\n12", "13 bytes, 2 entries, 1999-01-05 to none: there invalid"},
      {"01-05-1800\n12-31-1899\n01-07-1999", "32 bytes, 3 entries, 1899-12-31 to 1999-01-07: there"},
      {"  \n\n", "4 bytes, 0 entries, none to none: there invalid"},
      {"\xFF", "1 bytes, 1 entries, none to none: there invalid"},
      {"", "0 bytes, 0 entries, none to none: there empty invalid big"},  // the last two are what they were
      {"\x1F" + good, "27 bytes, 0 entries, none to none: there corrupt invalid big busy"},
  };
  for (const auto& c : cases) EXPECT_EQ(Examined(c.log), c.found) << c.log;
  EXPECT_EQ(ProcedureTrace, "CheckCorruption");
  EXPECT_EQ(Examined(good, LogHealth::Corrupt),
            "0 bytes, 0 entries, none to none: there corrupt invalid big");
  EXPECT_EQ(Examined("01-05-1999 \x1F", LogHealth::Sound, true),
            "12 bytes, 1 entries, 1999-01-05 to 1999-01-05: there busy");
  EXPECT_EQ(ProcedureTrace, "GetLogStats");
  LogEmpty = true;
  GetLogStats(false);
  EXPECT_FALSE(LogEmpty);
  std::filesystem::remove(CurrentLogPath);
  std::size_t yields = 0;
  host.yielded = [&yields] { ++yields; };
  Examine(LogHealth::Unknown);
  EXPECT_EQ(Found(), "0 bytes, 0 entries, none to none: empty");
  Examined(good);
  EXPECT_EQ(yields, 2u) << "for the hourglass of either pass";
  EXPECT_TRUE(host.messages.empty());

  MaxLogSize = 1;
  const std::string line = "01-05-1999 A\n";
  EXPECT_EQ(Examined(std::string(1010, ' ') + "\n" + line.substr(1)).find("big"), std::string::npos);
  EXPECT_NE(Examined(std::string(1010, ' ') + "\n" + line).find("big"), std::string::npos);
  MaxLogSize = 2097152;
  Examined(line);
  EXPECT_NE(host.messages.at(0).Text.find("Error code: 6\r\n"), std::string::npos);
}

TEST_F(LogStatistics, AByteThatNoTextHoldsIsCorruptionUnlessItIsTheLast) {
  for (int byte = 0; byte < 256; ++byte) {
    const bool isText = (byte >= 32 && byte < 127) || byte == '\t' || byte == '\n' || byte == '\r';
    OpenLog({static_cast<char>(byte), 'a'});
    EXPECT_EQ(CheckCorruption(false), !isText) << byte;
  }
  const std::size_t length = 2 * BlockSize + 3;
  for (const std::size_t place : {std::size_t{0}, BlockSize - 1, BlockSize, length - 2, length - 1}) {
    std::string log(length, 'x');
    log[place] = '\0';
    folder.Put("test.log", log);
    EXPECT_EQ(CheckCorruption(false), place < length - 1) << place;
  }
}

TEST_F(LogStatistics, TheCorruptionTestTellsEveryPercentUpToTheSizeItCanTake) {
  std::vector<std::string> expected;
  for (int percent = 1; percent <= 100; ++percent)
    expected.push_back("splash: Please Wait .....Loading  " + std::to_string(percent) + "%");
  expected.push_back("splash: Please Wait .....Loading 100%");
  for (const int length : {200, 100, 3276749, 49}) {
    folder.Put("test.log", std::string(static_cast<std::size_t>(length), 'x'));
    SetCurrentLog(folder.Path("test.log"));
    LineReader left(CurrentLogPath);
    std::size_t yields = 0;
    host.yielded = [&yields] { ++yields; };
    host.transcript.clear();
    EXPECT_FALSE(CheckCorruption(true));
    EXPECT_EQ(host.pointer, MousePointer::Default);
    // Each byte but the first is told of as the next one is reached; a short log has no steps.
    const std::ptrdiff_t passed = length == 49 ? 100 : length == 100;
    EXPECT_EQ(host.transcript, std::vector(expected.begin() + passed, expected.end())) << length;
    EXPECT_EQ(yields, host.transcript.size() + 1);
    std::string_view line;
    EXPECT_THROW(left.Next(line), RunTimeError) << "open files are closed";
  }
  folder.Put("test.log", std::string(3276750, 'x'));
  CheckCorruption(true);
  EXPECT_NE(host.messages.at(0).Text.find("Error code: 6\r\n"), std::string::npos);
}

TEST_F(LogStatistics, LengthsReadInKilobytesUntilSixteenBitsAreFull) {
  const std::pair<std::int64_t, const char*> cases[] = {
      {0, "0 Bytes (0KB)"},
      {1536, "1536 Bytes (2KB)"},
      {2560, "2560 Bytes (2KB)"},
      {33553919, "33553919 Bytes (32767KB)"},
      {33553920, "33553920 Bytes (32MB)"},
      {35127296, "35127296 Bytes (34MB)"},
  };
  for (const auto& [bytes, text] : cases) EXPECT_EQ(LengthText(bytes), text);
}

}  // namespace qel
