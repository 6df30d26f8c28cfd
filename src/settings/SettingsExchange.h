// The program's settings in a file of their own, which saves them or brings them to another machine.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "registry/RegistryStore.h"

namespace qel {

// The program's keys of the store, what other programs brought there included, as the text of a file that
// restores them.
std::string ExportedOptions(RegistryStore& store);

// Why the settings in a file cannot be taken; `what()` is one line for the user, in Windows-1252.
class SettingsFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct SettingsFile {
  RegistryTree Own;    // the program's keys
  int Keys = 0;        // those of them that hold values
  int Values = 0;      // in these
  int PassedOver = 0;  // keys with values that are not the program's
};

// Reads and judges the text of a settings file. The program's keys must hold a value, and all values that the
// program knows must be of its types and convert; dates and times by the regional values of this machine.
// Raises SettingsFileError, and RegistryFileError for a text of another format.
SettingsFile ReadSettingsFile(const std::string& content);

// The same of a file on the disk, judged as a whole: nothing where it cannot be taken as it stands, and `why`
// says so in one line for the user, in Windows-1252.
std::optional<SettingsFile> FindSettingsFile(const std::string& path, std::string& why);

// Puts the program's keys and values into the store, which keeps all others. Flush brings them to the disk.
void ImportOptions(RegistryStore& store, const SettingsFile& file);

}  // namespace qel
