// Tables too wide for code: files of one case a line, in columns divided by " => ". "none" is an empty text;
// a line that begins with "#" is a comment.
#pragma once

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

}  // namespace qel
