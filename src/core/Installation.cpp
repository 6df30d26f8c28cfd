#include "core/Installation.h"

#include <iostream>

#include "core/ErrorHandler.h"
#include "platform/Files.h"
#include "platform/SymbolicLinks.h"
#include "values/RunTimeError.h"

namespace qel {

namespace {

const char* const Names[] = {"QelTips.txt", "QEL.HLP", "readme.htm", "exceeded.wav"};

void CopyFirst(const std::vector<std::string>& from, const std::string& name, const std::string& copy) {
  for (const auto& folder : from) {
    const std::string original = folder + PathSeparator + name;
    if (PathExists(original)) return ReplaceFile(copy, ReadWholeFile(original));
  }
}

}  // namespace

std::vector<std::string> InstalledFolders() {
  std::vector<std::string> folders;
  IgnoreErrors([&] { folders.push_back(FolderOf(BehindLinks("/proc/self/exe")) + "/../share/qel"); });
  folders.push_back(QEL_INSTALLED_FOLDER);
  return folders;
}

void CopyMissingFiles(const std::vector<std::string>& from, const std::string& to) {
  for (const std::string name : Names) {
    const std::string copy = to + PathSeparator + name;
    try {
      if (!PathExists(copy)) CopyFirst(from, name, copy);
    } catch (const RunTimeError& error) {
      std::cerr << "qel: " << copy << " could not be made: " << error.Description() << '\n';
    }
  }
}

}  // namespace qel
