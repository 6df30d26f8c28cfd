// Whole texts against files of the tests. With QEL_ACCEPT=1 in the environment the files are written anew
// with what was seen, so that a change of behaviour is read as a difference.
#pragma once

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace qel {

// `name` is the file below tests/.
inline void ExpectFile(const std::string& name, const std::string& seen) {
  const std::string path = std::string(QEL_SOURCE_DIR) + "/tests/" + name;
  if (std::getenv("QEL_ACCEPT") != nullptr) std::ofstream(path, std::ios::binary) << seen;
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  EXPECT_EQ(seen, std::string(std::istreambuf_iterator<char>(file), {})) << name;
}

}  // namespace qel
