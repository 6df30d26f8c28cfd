// Bringing an exported settings file into the user's store.
#pragma once

#include <string>

namespace qel {

// Takes the program's settings in the file into the store, where they replace those of the same name; says on
// standard error how many. False with a complaint where the file is not taken, the store then being as it
// was, or where the store cannot be written.
bool ImportSettings(const std::string& path);

}  // namespace qel
