// Tables too wide for code: files of one case a line, in columns divided by " => ". "none" is an empty text;
// a line that begins with "#" is a comment.
#pragma once

#include <array>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace qel {

template <std::size_t Columns = 4>
std::vector<std::array<std::string, Columns>> Cases(const std::string& name) {
  std::ifstream file(std::string(QEL_SOURCE_DIR) + "/tests/" + name + ".cases");
  if (!file) throw std::runtime_error("no cases " + name);
  std::vector<std::array<std::string, Columns>> rows;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('#')) continue;
    line += " => ";
    std::size_t column = 0;
    for (auto& row = rows.emplace_back(); !line.empty(); line.erase(0, line.find(" => ") + 4), ++column)
      if (!line.starts_with("none => ")) row.at(column) = line.substr(0, line.find(" => "));
  }
  return rows;
}

}  // namespace qel
