// Texts written in another way, for files of the tests.
#pragma once

#include <string>

namespace qel {

inline std::string WithEach(std::string text, const std::string& mark, const std::string& instead) {
  for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += instead.size())
    text.replace(at, mark.size(), instead);
  return text;
}

// With its line ends as they are written in sources.
inline std::string Quotable(const std::string& text) {
  return WithEach(WithEach(text, "\r", "\\r"), "\n", "\\n");
}

// A log in one line: "|" is CR LF, "/" is LF, and "%1F" any byte. What was folded has no bytes that need it.
inline std::string Folded(const std::string& log) { return WithEach(WithEach(log, "\r\n", "|"), "\n", "/"); }
inline std::string Unfolded(const std::string& line, int times = 1) {
  std::string log = WithEach(WithEach(line, "|", "\r\n"), "/", "\n"), all;
  for (std::size_t at = 0; (at = log.find('%', at)) != std::string::npos; ++at)
    log.replace(at, 3, 1, static_cast<char>(std::stoi(log.substr(at + 1, 2), nullptr, 16)));
  for (; times > 0; --times) all += log;
  return all;
}

}  // namespace qel
