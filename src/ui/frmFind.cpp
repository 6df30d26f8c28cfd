#include "ui/frmFind.h"

#include <algorithm>
#include <string_view>

#include "core/Surroundings.h"
#include "core/Version.h"
#include "ui/HelpContexts.h"
#include "ui/frmViewLog.h"
#include "values/CodePage.h"

namespace qel {

std::string FindText;
Int16 FindMatchCase;
Int16 FindDirection = 1;
float FindLastPos = 0;
bool FindFirstTime = false;
TheForm<frmFind> FindForm;

namespace {

constexpr int Down = 1;
constexpr auto NoHit = std::string_view::npos;

// The place of the needle in the haystack, from `start` on or before it; a hit that begins right before
// `start` does not count upward.
std::size_t Search(std::string_view haystack, std::string_view needle, std::size_t start) {
  if (needle.empty()) return NoHit;
  if (FindDirection == Down) return haystack.find(needle, start);
  return start < 2 ? NoHit : haystack.rfind(needle, start - 2);
}

}  // namespace

void ResetFind() {
  FindText.clear();
  FindMatchCase = 0;
}

frmFind::frmFind() : Form("frmFind") {
  HelpContextID = HelpFind;
  Text1.Change = [this] {
    FindFirstTime = true;
    cmdFind.Enabled = !Text1.Text().empty();
  };
  chkCase.Click = [this] { FindMatchCase = Int16(chkCase.Value()); };
  for (std::size_t i = 0; i < optDirection.size(); ++i)
    optDirection[i].Click = [i] { FindDirection = Int16(static_cast<int>(i)); };
  cmdFind.Click = [this] {
    FindText = Text1.Text;
    DoFind();
  };
  cmdcancel.Click = [this] {
    FindText = Text1.Text;
    FindMatchCase = Int16(chkCase.Value());
    Unload();
  };
}

void frmFind::Form_Load() {
  cmdFind.Enabled = false;
  optDirection[Down].Value = true;
}

void DoFind() {
  SetTrace("frmFind", "DoFind");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CurrentHost().Paint();
  if (!ViewLogForm.IsLoaded())
    return CurrentHost().SetMousePointer(MousePointer::Default);  // closed meanwhile
  RichTextBox& box = ViewLogForm->TextViewLog;
  const int selected = box.SelStart();
  const bool again = !FindFirstTime && static_cast<float>(selected) == FindLastPos;
  const auto start = static_cast<std::size_t>(again ? selected + 1 : selected);
  const std::string& text = box.Text;
  const std::size_t hit = FindMatchCase != 0 ? Search(text, FindText, start)
                                             : Search(UpperCase(text), UpperCase(FindText), start);
  if (hit == NoHit) {
    MsgBox({"Cannot find \"" + FindText + "\"", ProgramTitle});
  } else {
    box.Select(static_cast<int>(hit), static_cast<int>(FindText.size()));
    if (FindForm.IsLoaded()) FindForm->Unload();
  }
  FindLastPos = static_cast<float>(box.SelStart());
  FindFirstTime = false;
  CurrentHost().SetMousePointer(MousePointer::Default);
}

}  // namespace qel
