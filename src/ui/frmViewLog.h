// The log as text, for reading, searching and, where the user allows it, editing; or any other text file.
#pragma once

#include <string>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/TextControls.h"
#include "platform/Files.h"
#include "ui/Windows.h"

namespace qel {

class frmViewLog : public Window {
 public:
  explicit frmViewLog(Windows& owner);

  MenuItem mnuFile{*this, "mnuFile"};
  MenuItem mnuSave{*this, "mnuSave", [this] { mnuSave_Click(); }};
  MenuItem mnuSaveArchive{*this, "mnuSaveArchive", [this] { mnuSaveArchive_Click(); }};
  MenuItem mnuExit{*this, "mnuExit", [this] { Unload(); }};
  MenuItem mnuEdit{*this, "mnuEdit"};
  MenuItem mnuCut{*this, "mnuCut"};
  MenuItem mnuCopy{*this, "mnuCopy", [this] { mnuCopy_Click(); }};
  MenuItem mnuPaste{*this, "mnuPaste"};
  MenuItem mnuSelectAll{*this, "mnuSelectAll"};
  MenuItem mnuSearch{*this, "mnuSearch"};
  MenuItem mnuSearchFind{*this, "mnuSearchFind", [this] { mnuSearchFind_Click(); }};
  MenuItem mnuSearchFindNext{*this, "mnuSearchFindNext", [this] { mnuSearchFindNext_Click(); }};
  MenuItem mnuTop{*this, "mnuTop"};
  MenuItem mnuBottom{*this, "mnuBottom"};
  MenuItem mnuSettings{*this, "mnuSettings"};
  MenuItem mnuFont{*this, "mnuFont", [this] { mnuFont_Click(); }};
  MenuItem mnuSaveSettings{*this, "mnuSaveSettings"};
  MenuItem mnuRestore{*this, "mnuRestore", [this] { mnuRestore_Click(); }};
  Toolbar Toolbar1{*this, "Toolbar1", {"", "Save", "Exit", "", "Search"}};
  StatusBar StatusBar1{*this, "StatusBar1"};
  RichTextBox TextViewLog{*this, "TextViewLog"};

  // A text file to show in place of the log: its path, and its name for the caption. Empty for the log.
  std::string ViewTextFile, ViewTextFileName;

  // What the window was opened for: the log, which may be an archive, or else another text file.
  bool ShowsLog() const { return ViewingLog; }
  bool ShowsArchive() const { return viewingArchive; }

 private:
  void Form_Load() override;
  void Form_Activate() override;
  bool Form_Unload() override;
  void ShowLog();
  void ShowTextFile();
  bool OpenLogFile(const std::string& path);
  bool SaveLogFile(const std::string& path);
  bool mnuSave_Click();
  void ApplyEditState();
  void ShowEditState();
  void ApplyFont();
  void ShowViewerStatus();
  void KeepSettings();
  void EnableSave(bool enabled);
  void mnuSaveArchive_Click();
  void mnuCopy_Click();
  void mnuFont_Click();
  void mnuRestore_Click();
  void mnuSearchFind_Click();
  void mnuSearchFindNext_Click();

  bool ViewingLog = false;
  bool viewingArchive = false;
  bool loading = false;     // the text is being set by the program
  std::string shownPath;    // the file that the text came from, which saving writes
  FileStamp opened;         // as it was then
  std::string archiveName;  // offered for the text as an archive
};

}  // namespace qel
