// The main window's list of the files that were opened last.
#include <algorithm>

#include "core/ErrorHandler.h"
#include "ui/frmMain.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr std::size_t LongestRecentName = 35;  // characters

// Both ends of a name, which tell names apart best; "&" would mark an access key in a menu.
std::string RecentCaption(const std::string& fileName) {
  std::string name = PathText(fileName);
  if (name.size() > LongestRecentName) name = name.substr(0, 16) + "..." + name.substr(name.size() - 16);
  std::string caption;
  for (const char c : name) caption += c == '&' ? "&&" : std::string(1, c);
  return caption;
}

}  // namespace

void frmMain::mnuRecent_Click(std::size_t index) {
  const RecentFile file = windowSettings.RecentFiles[index];
  const std::string path = file.RecentFilePath + file.RecentFileName;
  if (file.RecentFileType == "A") OpenArchive(path);
  if (file.RecentFileType == "R") DoOpenReport(path);
}

void frmMain::mnuClrLst_Click() {
  windowSettings.RecentFiles = {};
  SaveRecentFiles();
  ShowRecentFiles();
}

void frmMain::AddRecentFile(const std::string& name, const std::string& path, const std::string& type) {
  std::move_backward(windowSettings.RecentFiles.begin(), windowSettings.RecentFiles.end() - 1,
                     windowSettings.RecentFiles.end());
  windowSettings.RecentFiles.front() = {name, path, type};
  const auto again = std::remove_if(windowSettings.RecentFiles.begin() + 1, windowSettings.RecentFiles.end(),
                                    [&name](const RecentFile& file) { return file.RecentFileName == name; });
  std::fill(again, windowSettings.RecentFiles.end(), RecentFile());
  SaveRecentFiles();
}

void frmMain::SaveRecentFiles() {
  IgnoreErrors([this] {
    const std::string key = std::string(SettingsKey) + "\\RecentFiles";
    for (std::size_t i = 0; i < windowSettings.RecentFiles.size(); ++i) {
      const RecentFile& file = windowSettings.RecentFiles[i];
      const std::string number = std::to_string(i + 1);
      SetKeyValue(store, SettingsRoot, key, "RecentFileName" + number, file.RecentFileName, REG_SZ);
      SetKeyValue(store, SettingsRoot, key, "RecentFilePath" + number, file.RecentFilePath, REG_SZ);
      SetKeyValue(store, SettingsRoot, key, "RecentFileType" + number, file.RecentFileType, REG_SZ);
    }
  });
  SaveRegistry(store);
}

void frmMain::ShowRecentFiles() {
  bool any = false;
  for (std::size_t i = 0; i < mnuRecent.size(); ++i) {
    const RecentFile& file = windowSettings.RecentFiles[i];
    mnuRecent[i].Caption = RecentCaption(file.RecentFileName);
    mnuRecent[i].ToolTipText = PathText(file.RecentFilePath + file.RecentFileName);
    mnuRecent[i].Visible = !file.RecentFileName.empty();
    any = any || mnuRecent[i].Visible;
  }
  mnuClrLst.Visible = any;  // a face draws no two separators in a row
}

}  // namespace qel
