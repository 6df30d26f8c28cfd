// A folder of a test's own, removed with all that is in it when the test ends.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <string_view>

namespace qel {

class TemporaryFolder {
 public:
  TemporaryFolder() : path((std::filesystem::temp_directory_path() / "qel-test-XXXXXX").string()) {
    if (::mkdtemp(path.data()) == nullptr) throw std::runtime_error("no temporary folder");
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& Path() const { return path; }
  std::string Path(const std::string& name) const { return path + "/" + name; }

  // Past the disk in place, so that a failing one neither fails nor counts these.
  void Put(const std::string& name, std::string_view content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  std::string Content(const std::string& name) const {
    std::ostringstream content;
    content << std::ifstream(Path(name), std::ios::binary).rdbuf();
    return content.str();
  }
  void Empty() const {
    for (const auto& entry : std::filesystem::directory_iterator(path)) std::filesystem::remove_all(entry);
  }
  bool Has(const std::string& name) const { return std::filesystem::exists(Path(name)); }
  std::ptrdiff_t Entries() const {
    return std::distance(std::filesystem::directory_iterator(path), std::filesystem::directory_iterator());
  }

 private:
  std::string path;
};

}  // namespace qel
