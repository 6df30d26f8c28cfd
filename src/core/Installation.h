// What an installation brings for the program's folder: the tips, the help, the readme and the warning sound.
#pragma once

#include <string>
#include <vector>

namespace qel {

// Where these files may lie, the likeliest folder first: share/qel beside the folder of the running program,
// so that an unpacked archive works wherever it stands; then the place that the build was configured for. A
// program that has not been installed finds the source's files in the first, through a link in its build
// tree.
std::vector<std::string> InstalledFolders();

// Copies into the folder `to` what it lacks of these files, each from the first of the folders `from` that
// has it. What is there already stays, for the user may have changed it. Nothing waits for these files, so a
// failure only costs a line on standard error.
void CopyMissingFiles(const std::vector<std::string>& from, const std::string& to);

}  // namespace qel
