#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "makelog/LogOptions.h"
#include "makelog/Random.h"
#include "makelog/WriteLog.h"
#include "support/Cases.h"

namespace qel {
namespace {

std::vector<std::string> Words(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

std::string Log(const std::string& arguments) {
  std::ostringstream out;
  WriteLog(ParseOptions(Words(arguments)), out);
  return out.str();
}

std::vector<std::string> Lines(const std::string& log) {
  std::vector<std::string> lines;
  std::istringstream in(log);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

constexpr std::size_t TextAt = std::string_view("MM-DD-YYYY hh:nn:ss.ff - ").size();

// The texts by which the analysis knows a line.
const char* const Markers[] = {
    "RECV: ATD", "ANSWERING", "CONNECTION ESTABLISHED", "HANGING UP THE MODEM", "REMOTE MODEM HUNG UP",
    "READS",     "WRITES"};

// The markers of a log's lines, one letter each in their order: d a c u h r w. A line may hold only one.
std::string Events(const std::string& log) {
  std::string events;
  for (std::string line : Lines(log)) {
    std::ranges::transform(line, line.begin(), [](unsigned char c) { return std::toupper(c); });
    std::string found;
    for (std::size_t i = 0; i < std::size(Markers); ++i) {
      if (line.find(Markers[i]) != std::string::npos) found += "dacuhrw"[i];
    }
    EXPECT_LE(found.size(), 1u) << line;
    events += found;
  }
  return events;
}

// Digits to "9" and the date in its sorting order, so that lines compare as text.
TEST(MakeLog, LinesAreDatedAscendAndEndInCarriageReturnAndLineFeed) {
  std::string before;
  for (const char* calls : {"0.3", "50"}) {
    before.clear();
    for (const std::string& line :
         Lines(Log(std::string("--days 60 --start 1999-12-10 --calls-per-day ") + calls))) {
      std::string form = line.substr(0, TextAt);
      std::ranges::replace_if(
          form, [](unsigned char c) { return std::isdigit(c); }, '9');
      ASSERT_EQ(form, "99-99-9999 99:99:99.99 - ");
      ASSERT_EQ(line.back(), '\r');
      ASSERT_EQ(std::ranges::count_if(line, [](char c) { return c < ' ' || c > '~'; }), 1) << line;
      const std::string moment = line.substr(6, 4) + line.substr(0, 5) + line.substr(11, 11);
      ASSERT_LE(before, moment);
      before = moment;
    }
    EXPECT_EQ(before.substr(0, 6), "200002");
  }
}

TEST(MakeLog, TheSameSeedGivesTheSameBytes) {
  EXPECT_EQ(Log("--days 30 --seed 7"), Log("--days 30 --seed 7"));
  EXPECT_NE(Log("--days 30 --seed 7"), Log("--days 30 --seed 8"));

  Random random(1234567);  // the generator's published values
  EXPECT_EQ(random.Next(), 6457827717110365317u);
  EXPECT_EQ(random.Next(), 3203168211198807973u);
}

TEST(MakeLog, TheLastCallIsTheOneThatReachesTheSize) {
  for (const auto& [text, bytes] : {std::pair{"1", 1u}, {"64K", 65536u}, {"2M", 2097152u}}) {
    const std::string log = Log(std::string("--chatter 0 --size ") + text);
    EXPECT_GE(log.size(), bytes);
    EXPECT_LT(log.size(), bytes + 1000);
  }
}

TEST(MakeLog, CallsTakeEveryCourse) {
  const std::string events = Events(Log("--days 2000 --chatter 60"));
  // Ended by the user or by the host, incoming, not answered, and the disconnect lost before either call.
  for (const char* course : {"dcurw", "dchrw", "acu", "du", "dcdc", "dcac"})
    EXPECT_NE(events.find(course), std::string::npos) << course;

  std::string rest = events;  // nothing but these courses
  for (const char* course : {"curw", "chrw", "du", "d", "a", "c"}) {
    for (std::size_t at; (at = rest.find(course)) != std::string::npos;)
      rest.erase(at, std::string(course).size());
  }
  EXPECT_EQ(rest, "");
}

TEST(MakeLog, DialsTheNumbersByTheirShare) {
  int rare = 0;
  for (const std::string& line : Lines(Log("--days 500 --numbers 5550101,5550101,5550101,#31")))
    rare += line.find("Recv: ATDT#31<cr>\r") != std::string::npos;
  EXPECT_NEAR(rare, 245, 60);
}

TEST(MakeLog, RefusesWrongArguments) {
  for (const auto& [arguments, complaint] : Cases<2>("tools/Refusals")) {
    try {
      ParseOptions(Words(arguments));
      ADD_FAILURE() << "accepted, but should say " << complaint;
    } catch (const std::invalid_argument& error) {
      EXPECT_NE(std::string(error.what()).find(complaint), std::string::npos) << error.what();
    }
  }
  EXPECT_THROW(Log("--days 40 --start 9999-12-01"), std::runtime_error);
}

}  // namespace
}  // namespace qel
