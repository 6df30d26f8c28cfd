#include <random>

#include "modemlog/DialledNumber.h"
#include "modemlog/LineClassifier.h"
#include "modemlog/LogLine.h"
#include "modemlog/NewLog.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/FailingDisk.h"
#include "support/FreshProgram.h"
#include "support/MemoryDisk.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"

namespace qel {

using LogLine = FreshProgram;

TEST_F(LogLine, DateCarriesOverAndTimeLiesBetweenTheFirstBlankAndThePointBehindIt) {
  for (const auto& [line, expectedDate, time, _] : Cases("modemlog/Lines")) {
    const Date date = GetLineDate(line);
    EXPECT_EQ(date == 0 ? "" : FormatDate(date, "yyyy-mm-dd"), expectedDate) << line;
    std::string second;
    const int error = ErrorOf([&] { second = std::to_string(SecondOfDay(TimeOfLine(line))); });
    EXPECT_EQ(error == 0 ? second : "error " + std::to_string(error), time) << line;
  }
}

TEST_F(LogLine, ByteCountIsTheFirstNumberThatDoesNotEndTheLine) {
  for (const auto& c : Cases("modemlog/ByteCounts"))
    EXPECT_EQ(GetReadBytes(settings, c[0]), std::stoi(c[1])) << c[0];
  EXPECT_THROW(GetReadBytes(settings, "READS 2147483648;"), RunTimeError);
  EXPECT_EQ(GetWriteBytes(settings, "READS 6,789 WRITES 22."), 22);
}

TEST_F(LogLine, ClassesAreThoseThatAPlainSearchOfTheCapitalLineFinds) {
  std::mt19937 random(1);
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  const auto text = [&](std::size_t length, const std::string& letters) {
    std::string result(length, ' ');
    for (char& letter : result) letter = letters[below(letters.size())];
    return result;
  };
  const std::string letters("ABab \xC4\xE4\x8A\x9A\xFF\x9F\xDF\0", 13), capitals("AB\xC4\x8A\x9F\xDF"),
      smalls("ab\xE4\x9A\xFF");
  for (int round = 0; round < 3000; ++round) {
    const std::size_t least = std::array<std::size_t, 6>{0, 1, 2, 3, 9, 300}[below(6)];
    std::array<std::string, 7> responses;
    for (auto& response : responses) response = text(least + below(4), below(9) == 0 ? letters : capitals);
    const LineClassifier classifier(responses);
    for (int n = 0; n < 10; ++n) {
      std::string line = text(below(12), letters);
      if (below(2) == 0) {
        line += responses[below(7)];
        for (char& letter : line)
          if (const auto at = capitals.find(letter); at < smalls.size()) letter = smalls[at];
        line += text(below(4), letters);
      }
      if (below(4) == 0) line = responses[below(7)].substr(0, least) + line;
      unsigned expected = NoClass;
      for (std::size_t i = 0; i < 7; ++i)
        if (UpperCase(line).find(responses[i]) != std::string::npos) expected |= 1u << i;
      ASSERT_EQ(classifier.ClassesOf(line), expected) << "round " << round << ", line " << line;
    }
  }
}

TEST_F(LogLine, NumberIsCutBetweenTheDialModeAndTheLineEndNotation) {
  for (const auto& [line, number, valid, _] : Cases("modemlog/Numbers")) {
    EXPECT_EQ(CutDialledNumber(settings, line), number) << line;
    EXPECT_EQ(IsValidNumber(number), valid == "yes") << line;
  }
}

TEST_F(LogLine, AServiceIsFoundByEitherNumberAndTheLowerIndexWins) {
  AddService(" Alpha ", "111", "222");
  AddService("Beta", "222", " 333");
  AddService("Gamma", "444", "");
  EXPECT_EQ(GetServiceIndex(settings, " 222 "), 0);
  EXPECT_EQ(GetServiceIndex(settings, " 333"), -1);  // the service's blanks count
  EXPECT_EQ(GetServiceIndex(settings, ""), 2);
  EXPECT_EQ(
      GetServiceName(settings, "111") + GetServiceName(settings, " 444") + GetServiceName(settings, "5"),
      "AlphaGamma5");
  EXPECT_EQ(GetAltNumber(settings, "222") + GetAltNumber(settings, " 333") + GetAltNumber(settings, "5"),
            "111222");
  settings.UsedServices = 2;
  EXPECT_EQ(GetServiceIndex(settings, ""), -1);
}

TEST_F(LogLine, ANewLogHasOneEntryAndComesInTheWayOfNone) {
  const std::string entry = "01-15-1999 12:00:00.00 - New modem log file created by QEL (Qelmark) v1.0\r\n";
  EXPECT_EQ(NewLogEntry(), entry);
  MemoryDisk memory;
  FailingDisk disk(memory);
  const DiskInPlace inPlace(disk);
  int operations = 0;
  for (int n = 0; n <= operations; ++n) {  // before which the modem's driver makes one; first never
    memory.Empty();
    memory.PutFolder("/");
    disk.Mend();
    disk.Before = [&](int operation) {
      if (operation == n) memory.Append("/log", "the driver's\r\n");
    };
    const bool made = NewModemLog("/log");
    const std::string log = memory.Content("/log");
    EXPECT_TRUE(made ? log == entry || log == entry + "the driver's\r\n" : n > 0 && log == "the driver's\r\n")
        << n;
    if (n == 0) operations = disk.Operations();
  }
  disk.Before = nullptr;
  EXPECT_EQ(ErrorOf([] { NewModemLog("/"); }), FileAlreadyExists);
  EXPECT_EQ(ErrorOf([] { NewModemLog("/none/log"); }), PathNotFound);
}

}  // namespace qel
