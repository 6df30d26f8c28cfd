// A journey as a file: lines that act, and below each one, indented, what is seen then. A line that begins
// with "#" tells the reader what goes on; one that begins with "> " belongs to the act above it, as a line of
// a file.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qel {

struct Act {
  std::vector<std::string> Words;         // of the act; a word may stand in double quotes
  std::vector<std::string> Content = {};  // the lines behind "> "
  std::vector<std::string> Seen = {};     // when the script was accepted
  std::vector<std::string> Now = {};      // when it was played
  std::size_t Line = 0;                   // in the file, counted from 1

  // Raises std::runtime_error, with the place, where the act has no such word.
  const std::string& Word(std::size_t place) const;
  std::string WordOr(std::size_t place, const std::string& other) const;
  // The words behind the first one, a blank between them.
  std::string Rest() const;
};

class Script {
 public:
  explicit Script(const std::string& path);

  std::vector<Act>& Acts() { return acts; }
  // The first act whose consequences differ from those accepted, in both forms; empty where none does.
  std::string Difference() const;
  // Writes the file anew with what was seen now.
  void Accept() const;

 private:
  std::string path;
  std::vector<std::string> lines;  // without what is seen
  std::vector<Act> acts;
};

// Plays each act of a file below tests/ and holds what is seen against what was accepted; with QEL_ACCEPT=1
// in the environment the file is written anew.
void ExpectScript(const std::string& name, const std::function<void(Act&)>& play);

}  // namespace qel
