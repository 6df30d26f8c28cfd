#include "ui/frmTip.h"

#include <algorithm>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "platform/Files.h"
#include "settings/UserParameters.h"
#include "ui/HelpNumbers.h"
#include "ui/frmHelp.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr char TipFile[] = "QelTips.txt";

std::string NoTips() {
  return std::string("That the ") + TipFile + " file was not found? " + NewLine + NewLine +
         "Create a text file named " + TipFile + " using NotePad with 1 tip per line. " +
         "Then place it in the same directory as the application. ";
}

}  // namespace

frmTip::frmTip(Windows& owner) : Window("frmTip", owner) {
  HelpContextID = HelpTips;
  Command1.Click = [this] { windows.HelpForm->ShowHelpContents(); };
}

void frmTip::Form_Load() {
  SetTrace("frmTip", "Form_Load");
  chkLoadTipsAtStartup.Value = true;
  // Only now: the tick that it begins with is nobody's click.
  chkLoadTipsAtStartup.Click = [this] { chkLoadTipsAtStartup_Click(); };
  Attempt([this] {
    currentTip = WholeOf(QueryValue(store, SettingsRoot, std::string(SettingsKey) + "\\General", "LastTip"));
  });
  bool loaded = false;
  Attempt([this, &loaded] { loaded = LoadTips(places.AppPath + PathSeparator + TipFile); });
  if (!loaded) lblTipText.Caption = NoTips();
}

bool frmTip::LoadTips(const std::string& fileName) {
  SetTrace("frmTip", "LoadTips");
  if (!FileExists(fileName)) return false;
  std::vector<std::string> read;
  LineReader file(fileName);
  for (std::string_view line; file.Next(line);) read.emplace_back(line);
  file.Close();
  tips = std::move(read);
  ShowNextTip();
  return true;
}

void frmTip::DisplayCurrentTip() {
  if (tips.empty()) return;
  currentTip = std::max(currentTip, Int32(1));  // a run without a file counts back as far as the user clicks
  lblTipText.Caption = tips.at(static_cast<std::size_t>(currentTip - 1));
}

void frmTip::ShowNextTip() {
  currentTip = currentTip >= TipCount() ? Int32(1) : currentTip + 1;
  DisplayCurrentTip();
}

void frmTip::ShowPreviousTip() {
  currentTip = currentTip == 1 ? TipCount() : currentTip - 1;
  DisplayCurrentTip();
}

void frmTip::chkLoadTipsAtStartup_Click() {
  SetTrace("frmTip", "chkLoadTipsAtStartup_Click");
  settings.Tips = bool{chkLoadTipsAtStartup.Value};
  StoreGeneralValue(store, "Tips", bool{settings.Tips}, REG_SZ);
}

void frmTip::btnReadme_Click() {
  SetTrace("frmTip", "btnReadme_Click");
  Attempt([this] { CurrentHost().OpenDocument(places.AppPath + PathSeparator + "readme.htm"); });
}

bool frmTip::Form_Unload() {
  SetTrace("frmTip", "Form_Unload");
  session.TipShown = true;
  StoreGeneralValue(store, "LastTip", currentTip, REG_DWORD);
  return true;
}

}  // namespace qel
