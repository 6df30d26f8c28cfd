// The text form of a registry tree: the REGEDIT4 format, and reading of version 5.00 in UTF-16 or UTF-8.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "registry/RegistryStore.h"

namespace qel {

// Where and why a registry file makes no sense; `what()` is one line for the user, "line 12: ...".
class RegistryFileError : public std::runtime_error {
 public:
  RegistryFileError(int line, const std::string& why);
  int Line() const { return line; }

 private:
  int line;
};

// Reads either format, told by the first line. Takes CR LF and LF, comments (";"), values "text", dword:,
// hex: and hex(n):, continued lines, the default value "@", and the deletions "[-key]" and "name"=-. Text of
// version 5.00 is turned into Windows-1252. An empty text is an empty tree. Raises RegistryFileError.
RegistryTree ParseRegistryFile(std::string_view content);

// The REGEDIT4 text of a tree, CR LF lines, keys and values in alphabetical order, so that equal trees have
// equal texts. What it writes, ParseRegistryFile reads back to the byte.
std::string WriteRegistryFile(const RegistryTree& tree);

}  // namespace qel
