// Which of the seven response strings a line of the log holds, in one pass over the line.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qel {

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

// Searches as if the line were in capital letters: a response string with a small letter is never found, an
// empty one is found in every line.
//
// The search looks at the last two characters of a window as long as the shortest string and skips ahead by
// what the table says can be skipped, so most characters are never looked at.
class LineClassifier {
 public:
  // By the response strings of the settings.
  LineClassifier();
  explicit LineClassifier(const std::array<std::string, 7>& responses);

  // A set of LineClass.
  unsigned ClassesOf(std::string_view line) const;

 private:
  struct Response {
    std::string text;
    unsigned lineClass;
  };
  unsigned ClassesAt(std::string_view line, std::size_t position) const;

  // A pair of characters by their low five bits, which are the same for a letter and its capital.
  static std::size_t PairIndex(const char* pair) {
    return std::size_t{static_cast<unsigned char>(pair[0])} % 32 * 32 +
           static_cast<unsigned char>(pair[1]) % 32;
  }

  std::array<Response, 7> responses;
  unsigned always = NoClass;    // classes of empty response strings
  unsigned searched = NoClass;  // classes that a line may or may not have
  std::size_t window = 0;       // length of the shortest string searched for
  std::array<std::uint8_t, 1024> skip{};
};

}  // namespace qel
