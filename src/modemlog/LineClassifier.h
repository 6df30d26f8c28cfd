// Which of the seven response strings a line of the log holds, in one pass over the line.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qel {

struct Settings;

// A line can be of several classes at once; the order in which they count is the analysis's.
enum LineClass : unsigned {
  NoClass = 0,
  DialLine = 1,
  AnswerLine = 2,
  ConnectLine = 4,
  UserDisconnectLine = 8,
  HostDisconnectLine = 16,
  ReadsLine = 32,
  WritesLine = 64,
};

// The response strings of the settings, in the order of the classes.
using Responses = std::array<std::string, 7>;
Responses ResponsesOf(const Settings& settings);

// Searches as if the line were in capital letters: a response string with a small letter is never found, an
// empty one is found in every line.
//
// Of a line only every few pairs of characters are looked at, so far apart that any response string in the
// line covers one of them. The looks do not depend on each other, which the processor likes better than fewer
// that do.
class LineClassifier {
 public:
  explicit LineClassifier(const Responses& responses);

  // A set of LineClass.
  unsigned ClassesOf(std::string_view line) const;

 private:
  struct Response {
    std::string text;
    unsigned lineClass;
  };

  static unsigned PairIndex(char first, char second) {
    return static_cast<unsigned char>(first) | static_cast<unsigned>(static_cast<unsigned char>(second)) << 8;
  }
  void NotePlaces(const std::string& text);
  unsigned PlacesOf(std::string_view line, std::size_t pair) const;
  unsigned ClassesAround(std::string_view line, std::size_t pair, unsigned found) const;
  unsigned ClassesEndingAt(std::string_view line, std::size_t end) const;

  std::array<Response, 7> responses;
  unsigned always = NoClass;  // classes of empty response strings
  std::size_t window = 0;     // characters at each string's end that the looks rest on; 0 without strings
  std::array<std::uint8_t, 65536>
      places{};  // by pair: a bit for each place that it has in some string's window
};

}  // namespace qel
