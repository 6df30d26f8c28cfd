#include "journeys/Script.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>

namespace qel {

namespace {

const std::string Indent = "    ";

std::vector<std::string> WordsOf(const std::string& line) {
  std::vector<std::string> words;
  for (std::size_t at = 0; at < line.size();) {
    const bool quoted = line[at] == '"';
    const auto end = std::min(line.find(quoted ? '"' : ' ', at + quoted), line.size());
    words.push_back(line.substr(at + quoted, end - at - quoted));
    at = std::min(line.find_first_not_of(' ', end + 1), line.size());
  }
  return words;
}

}  // namespace

const std::string& Act::Word(std::size_t place) const {
  if (place < Words.size()) return Words[place];
  throw std::runtime_error("line " + std::to_string(Line) + ": " + Words[0] + " what?");
}

std::string Act::WordOr(std::size_t place, const std::string& other) const {
  return place < Words.size() ? Words[place] : other;
}

std::string Act::Rest() const {
  std::string rest;
  for (std::size_t place = 1; place < Words.size(); ++place) rest += (place > 1 ? " " : "") + Words[place];
  return rest;
}

Script::Script(const std::string& path) : path(path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("no journey " + path);
  std::size_t number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with(Indent)) {
      if (acts.empty()) throw std::runtime_error(path + " begins with what is seen");
      acts.back().Seen.push_back(line.substr(Indent.size()));
      continue;
    }
    lines.push_back(line);
    if (line.starts_with(">")) {
      acts.back().Content.push_back(line.substr(std::min<std::size_t>(line.size(), 2)));
    } else if (!line.empty() && !line.starts_with('#')) {
      acts.push_back({.Words = WordsOf(line), .Line = number});
    }
  }
}

std::string Script::Difference() const {
  for (const Act& act : acts) {
    if (act.Seen == act.Now) continue;
    const auto [was, is] = std::mismatch(act.Seen.begin(), act.Seen.end(), act.Now.begin(), act.Now.end());
    std::string text = path + ":" + std::to_string(act.Line) + ": " + act.Words[0] + " " + act.WordOr(1, "");
    const auto from = was - act.Seen.begin();
    constexpr std::ptrdiff_t Most = 12;
    for (auto line = was; line != act.Seen.end() && line - was < Most; ++line) text += "\n- " + *line;
    for (auto line = is; line != act.Now.end() && line - act.Now.begin() - from < Most; ++line)
      text += "\n+ " + *line;
    return text;
  }
  return "";
}

void Script::Accept() const {
  std::ofstream file(path);
  auto act = acts.begin();
  const std::vector<std::string>* now = nullptr;
  const auto tell = [&] {
    if (now)
      for (const std::string& line : *now) file << Indent << line << '\n';
    now = nullptr;
  };
  for (const std::string& line : lines) {
    if (!line.starts_with(">")) tell();
    file << line << '\n';
    if (!line.empty() && !line.starts_with('#') && !line.starts_with(">")) now = &(act++)->Now;
  }
  tell();
}

void ExpectScript(const std::string& name, const std::function<void(Act&)>& play) {
  Script script(std::string(QEL_SOURCE_DIR) + "/tests/" + name);
  for (Act& act : script.Acts()) play(act);
  if (std::getenv("QEL_ACCEPT") != nullptr) script.Accept();
  EXPECT_EQ(script.Difference(), "");
}

}  // namespace qel
