// Tables too wide for code: files of one case a line, in columns divided by " => ". "none" is an empty text;
// a line that begins with "#" is a comment.
//
// Where several lines of a log stand in one, "|" is CR LF, "/" is LF, and "%1F" any byte.
#pragma once

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace qel {

// The cases by their columns, of which a file may have more or fewer from line to line.
inline std::vector<std::vector<std::string>> CasesOf(const std::string& name) {
  std::ifstream file(std::string(QEL_SOURCE_DIR) + "/tests/" + name + ".cases");
  if (!file) throw std::runtime_error("no cases " + name);
  std::vector<std::vector<std::string>> cases;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('#')) continue;
    line += " => ";
    for (auto& columns = cases.emplace_back(); !line.empty(); line.erase(0, line.find(" => ") + 4))
      columns.push_back(line.starts_with("none => ") ? "" : line.substr(0, line.find(" => ")));
  }
  return cases;
}

template <std::size_t Columns = 4>
std::vector<std::array<std::string, Columns>> Cases(const std::string& name) {
  std::vector<std::array<std::string, Columns>> rows;
  for (const auto& columns : CasesOf(name))
    for (auto& row = rows.emplace_back(); const auto& column : columns)
      row.at(&column - columns.data()) = column;
  return rows;
}

inline std::string Unfolded(const std::string& text, int times = 1) {
  std::string lines;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '|') {
      lines += "\r\n";
    } else if (text[at] == '%') {
      lines += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
      at += 2;
    } else {
      lines += text[at] == '/' ? '\n' : text[at];
    }
  }
  std::string all;
  for (; times > 0; --times) all += lines;
  return all;
}

inline std::string Folded(std::string lines) {
  for (auto end = lines.find("\r\n"); end != std::string::npos; end = lines.find("\r\n"))
    lines.replace(end, 2, "|");
  std::ranges::replace(lines, '\n', '/');
  return lines;
}

}  // namespace qel
