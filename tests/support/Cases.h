// Tables too wide for code: files of one case a line, in columns divided by " => ". "none" is an empty text;
// a line that begins with "#" is a comment.
#pragma once

#include <array>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace qel {

inline std::vector<std::array<std::string, 4>> Cases(const std::string& name) {
  std::ifstream file(std::string(QEL_SOURCE_DIR) + "/tests/" + name + ".cases");
  if (!file) throw std::runtime_error("no cases " + name);
  std::vector<std::array<std::string, 4>> rows;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('#')) continue;
    line += " => ";
    auto& row = rows.emplace_back();
    for (auto column = row.begin(); !line.empty(); line.erase(0, line.find(" => ") + 4), ++column)
      if (!line.starts_with("none => ")) *column = line.substr(0, line.find(" => "));
  }
  return rows;
}

}  // namespace qel
