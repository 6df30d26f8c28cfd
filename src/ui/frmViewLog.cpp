#include "ui/frmViewLog.h"

#include <algorithm>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "core/Version.h"
#include "maintenance/LogSwap.h"
#include "settings/UserParameters.h"
#include "ui/HelpNumbers.h"
#include "ui/frmFind.h"
#include "ui/frmMain.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

// A text control holds a file several times over; beyond this size it would freeze rather than open.
constexpr std::int64_t LargestFile = 32 * 1024 * 1024;  // bytes

// Of a window's height or width as it is stored: screens have outgrown it.
constexpr int LargestSize = 32767;  // twips

// Behind font, edit state and two locks: that an archive could not be saved. An empty panel is not seen.
constexpr int ArchivePanel = 5;

constexpr char ArchiveFilter[] = "Qelmark Modem Log Archive (*.qel)|*.qel";

}  // namespace

frmViewLog::frmViewLog(Windows& owner) : Window("frmViewLog", owner) {
  HelpContextID = HelpLogViewer;
  StatusBar1.SetPanelCount(ArchivePanel);
  mnuCut.Click = [this] {
    mnuCopy_Click();
    TextViewLog.ReplaceSelection("");
  };
  mnuPaste.Click = [this] { TextViewLog.UserPaste(CurrentHost().ClipboardText()); };
  mnuSelectAll.Click = [this] { TextViewLog.Select(0, static_cast<int>(TextViewLog.Text().size())); };
  mnuTop.Click = [this] { TextViewLog.Select(0, 0); };
  mnuBottom.Click = [this] { TextViewLog.Select(static_cast<int>(TextViewLog.Text().size()), 0); };
  mnuSaveSettings.Click = [this] {
    windowSettings.ViewLogSettings.SaveSettings = !windowSettings.ViewLogSettings.SaveSettings;
    mnuSaveSettings.Checked = windowSettings.ViewLogSettings.SaveSettings;
  };
  TextViewLog.Change = [this] {
    if (ViewingLog && !loading) EnableSave(true);
  };
  TextViewLog.GotFocus = [this] { ShowEditState(); };
  KeyDown = [this](KeyPress&) { ShowViewerStatus(); };
  Toolbar1.ButtonClick = [this](const std::string& key) {
    if (key == "Save") mnuSave_Click();
    if (key == "Exit") Unload();
    if (key == "Search") mnuSearchFind_Click();
  };
}

void frmViewLog::Form_Load() {
  SetTrace("frmViewLog", "Form_Load");
  windows.ViewerOpen = true;
  if (settings.FlatToolbars) Toolbar1.Flat = true;
  ViewTextFile.empty() ? ShowLog() : ShowTextFile();
  if (windows.MainForm.IsLoaded()) windows.MainForm->NameLogCommands();
}

void frmViewLog::ShowLog() {
  ViewingLog = true;
  viewingArchive = logFile.ArchiveOpen;
  archiveName =
      FormatDate(findings.FirstEntryDate, "ddmmmyy") + " - " + FormatDate(findings.LastEntryDate, "ddmmmyy");
  mnuSaveSettings.Checked = windowSettings.ViewLogSettings.SaveSettings;
  Caption = logFile.ArchiveOpen ? "QEL - View Archive (" + PathText(logFile.CurrentLogFile) + ")"
                                : "QEL - View Modem Log";
  EnableSave(false);
  mnuSaveArchive.Enabled = OpenLogFile(logFile.CurrentLogPath);
  ApplyEditState();
  ApplyFont();
  Height = int{windowSettings.ViewLogSettings.WinHeight};
  Width = int{windowSettings.ViewLogSettings.WinWidth};
  WindowState = static_cast<qel::WindowState>(int{windowSettings.ViewLogSettings.WinState});
}

void frmViewLog::ShowTextFile() {
  Caption = "QEL - View Text File (" + PathText(ViewTextFileName) + ")";
  EnableSave(false);
  for (MenuItem* item : {&mnuSaveArchive, &mnuCut, &mnuPaste, &mnuSaveSettings, &mnuRestore})
    item->Enabled = false;
  TextViewLog.Locked = true;
  OpenLogFile(ViewTextFile);
  Font font = TextViewLog.Font;
  font.Name = "courier new";
  TextViewLog.Font = font;
}

// False where the file was not read; the window then stays empty.
bool frmViewLog::OpenLogFile(const std::string& path) {
  SetTrace("frmViewLog", "OpenLogFile");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  loading = true;
  const bool read = Attempt([&] {
    opened = StampOf(path);
    if (opened.Length > LargestFile) {
      MsgBox({"This file is too large to be viewed: " + std::to_string(opened.Length / 1048576) + " MB.\r\n" +
                  "The largest that can be is " + std::to_string(LargestFile / 1048576) + " MB.",
              ProgramTitle, Icon::Exclamation});
      return;
    }
    TextViewLog.Text = ReadWholeFile(path);
    shownPath = path;
  });
  loading = false;
  CurrentHost().SetMousePointer(MousePointer::Default);
  return read && !shownPath.empty();
}

bool frmViewLog::SaveLogFile(const std::string& path) {
  SetTrace("frmViewLog", "SaveLogFile");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  std::string inOtherHands;
  const bool ran = Attempt([&] {
    try {
      WriteLog(path, TextViewLog.Text() + NewLine, PathExists(path) ? std::optional(opened) : std::nullopt);
    } catch (const LogFailure& failure) {
      inOtherHands = failure.Reason();
    }
  });
  CurrentHost().SetMousePointer(MousePointer::Default);
  const bool saved = ran && inOtherHands.empty();
  if (saved) {
    EnableSave(false);
    Attempt([&] { opened = StampOf(path); });
  }
  // The handler would end the program, and the changes with it.
  if (!inOtherHands.empty())
    MsgBox({"Your changes have not been saved:\r\n" + inOtherHands +
                ".\r\n"
                "\r\n"
                "They stay in the viewer. Please try again later, or save them as an archive.",
            ProgramTitle, Icon::Exclamation});
  return saved;
}

void frmViewLog::ApplyEditState() {
  const bool editable = settings.EditLog && ViewingLog && !shownPath.empty();
  TextViewLog.Locked = !editable;
  mnuPaste.Enabled = mnuCut.Enabled = editable;
}

void frmViewLog::ApplyFont() {
  TextViewLog.Font = {windowSettings.ViewLogSettings.FontName,
                      static_cast<float>(windowSettings.ViewLogSettings.FontSize),
                      windowSettings.ViewLogSettings.FontBold, windowSettings.ViewLogSettings.FontItalic};
}

void frmViewLog::ShowViewerStatus() {
  const Font& font = TextViewLog.Font;
  StatusBar1.SetPanel(1, font.Name + " " + NumberText(font.Size) + (font.Bold ? " Bold" : "") +
                             (font.Italic ? " Italic" : ""));
  StatusBar1.SetPanel(2, settings.EditLog ? "Edit Allowed" : "Locked");
  StatusBar1.SetPanel(3, CurrentHost().IsLocked(LockKey::Caps) ? "CAPS" : "");
  StatusBar1.SetPanel(4, CurrentHost().IsLocked(LockKey::Scroll) ? "SCRL" : "");
}

void frmViewLog::EnableSave(bool enabled) {
  mnuSave.Enabled = enabled;
  Toolbar1.Button("Save").Enabled = enabled;
}

// The option may have changed since the window was last in front.
void frmViewLog::ShowEditState() {
  ApplyEditState();
  ShowViewerStatus();
}

void frmViewLog::Form_Activate() {
  Toolbar1.Visible = settings.ShowToolbars;
  ShowEditState();
}

// A window whose changes the user wants kept stays while they cannot be.
bool frmViewLog::Form_Unload() {
  SetTrace("frmViewLog", "Form_Unload");
  if (mnuSave.Enabled && !mnuSave_Click() && !EndIsCertain()) return false;
  windows.ViewerOpen = false;
  if (ViewingLog) KeepSettings();
  if (windows.FindForm.IsLoaded()) windows.FindForm->Unload();
  if (windows.MainForm.IsLoaded()) windows.MainForm->NameLogCommands();
  return true;
}

void frmViewLog::KeepSettings() {
  if (windowSettings.ViewLogSettings.SaveSettings) {
    const Font& font = TextViewLog.Font;
    windowSettings.ViewLogSettings.FontName = font.Name;
    windowSettings.ViewLogSettings.FontSize = Int16(font.Size);
    windowSettings.ViewLogSettings.FontBold = font.Bold;
    windowSettings.ViewLogSettings.FontItalic = font.Italic;
    windowSettings.ViewLogSettings.WinState = Int16(static_cast<int>(WindowState()));
    if (WindowState == qel::WindowState::Normal) {
      windowSettings.ViewLogSettings.WinHeight = Int16(std::min(Height(), LargestSize));
      windowSettings.ViewLogSettings.WinWidth = Int16(std::min(Width(), LargestSize));
    }
    return session.StoreSettings();
  }
  WriteSaveSettings(store, "\\ViewLog", windowSettings.ViewLogSettings.SaveSettings);
}

// False where the user wanted to save and could not.
bool frmViewLog::mnuSave_Click() {
  SetTrace("frmViewLog", "mnuSave_Click");
  if (MsgBox({"Save Changes to Modem Log File?", ProgramTitle, Icon::None, Buttons::YesNo}) != Answer::Yes)
    return true;
  FileStamp now = opened;
  IgnoreErrors([&] { now = StampOf(shownPath); });
  if (now != opened && MsgBox({"The file has changed since it was opened.\r\n"
                               "Saving writes over what was added to it meanwhile.\r\n"
                               "\r\n"
                               "Save all the same?",
                               "WARNING", Icon::Exclamation, Buttons::YesNo}) != Answer::Yes)
    return false;
  opened = now;  // the user knows
  return SaveLogFile(shownPath);
}

// A failure is no reason to leave the viewer: its bar says so, and clearing the log asks again.
void frmViewLog::mnuSaveArchive_Click() {
  SetTrace("frmViewLog", "mnuSaveArchive_Click");
  const auto path = CurrentHost().AskSaveFile({ArchiveFilter, places.AppPath, ToUtf8(archiveName)});
  if (!path) return;
  const ArchiveTry made = SaveArchive(*path, TextViewLog.Text, shownPath, opened);
  StatusBar1.SetPanel(ArchivePanel, made.Failure.empty() ? "" : "Archive NOT saved: " + made.Failure);
  if (!made.Failure.empty()) CurrentHost().Beep();
  if (windows.MainForm.IsLoaded()) windows.MainForm->TakeArchiveTry(made);
}

void frmViewLog::mnuCopy_Click() { CurrentHost().SetClipboardText(TextViewLog.SelText()); }

void frmViewLog::mnuFont_Click() {
  SetTrace("frmViewLog", "mnuFont_Click");
  const auto font = CurrentHost().AskFont(TextViewLog.Font);
  if (!font) return;
  TextViewLog.Font = *font;
  ShowViewerStatus();
}

void frmViewLog::mnuRestore_Click() {
  RestoreViewLogDefaults(windowSettings.ViewLogSettings);
  ApplyFont();
  mnuSaveSettings.Checked = windowSettings.ViewLogSettings.SaveSettings;
  Height = int{windowSettings.ViewLogSettings.WinHeight};
  Width = int{windowSettings.ViewLogSettings.WinWidth};
  ShowViewerStatus();
}

void frmViewLog::mnuSearchFind_Click() {
  SetTrace("frmViewLog", "mnuSearchFind_Click");
  const std::string selected = TextViewLog.SelText();
  windows.FindForm->Load();
  windows.FindForm->Text1.Text = selected.empty() ? windows.search.FindText : selected;
  windows.FindForm->Text1.Select(
      0, static_cast<int>(windows.FindForm->Text1.Text().size()));  // to be typed over
  windows.FindForm->Text1.SetFocus();
  windows.search.FindFirstTime = true;
  if (windows.search.FindMatchCase != 0) windows.FindForm->chkCase.Value = true;
  windows.FindForm->Show();
}

void frmViewLog::mnuSearchFindNext_Click() {
  if (windows.search.FindText.empty())
    mnuSearchFind_Click();
  else
    DoFind(windows);
}

}  // namespace qel
