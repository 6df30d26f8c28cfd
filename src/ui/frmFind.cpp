#include "ui/frmFind.h"

#include <algorithm>
#include <string_view>

#include "core/Surroundings.h"
#include "core/Version.h"
#include "ui/HelpNumbers.h"
#include "ui/frmViewLog.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr int Down = 1;
constexpr auto NoHit = std::string_view::npos;

// The place of the needle in the haystack, from `start` on or before it; a hit that begins right before
// `start` does not count upward.
std::size_t Search(std::string_view haystack, std::string_view needle, std::size_t start, Int16 direction) {
  if (needle.empty()) return NoHit;
  if (direction == Down) return haystack.find(needle, start);
  return start < 2 ? NoHit : haystack.rfind(needle, start - 2);
}

}  // namespace

frmFind::frmFind(Windows& owner) : Window("frmFind", owner) {
  HelpContextID = HelpFind;
  Text1.Change = [this] {
    windows.search.FindFirstTime = true;
    cmdFind.Enabled = !Text1.Text().empty();
  };
  chkCase.Click = [this] { windows.search.FindMatchCase = Int16(chkCase.Value()); };
  for (std::size_t i = 0; i < optDirection.size(); ++i)
    optDirection[i].Click = [this, i] { windows.search.FindDirection = Int16(static_cast<int>(i)); };
  cmdFind.Click = [this] {
    windows.search.FindText = Text1.Text;
    DoFind(windows);
  };
  cmdcancel.Click = [this] {
    windows.search.FindText = Text1.Text;
    windows.search.FindMatchCase = Int16(chkCase.Value());
    Unload();
  };
}

void frmFind::Form_Load() {
  cmdFind.Enabled = false;
  optDirection[Down].Value = true;
}

void DoFind(Windows& windows) {
  LogSearch& search = windows.search;
  SetTrace("frmFind", "DoFind");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CurrentHost().Paint();
  if (!windows.ViewLogForm.IsLoaded())
    return CurrentHost().SetMousePointer(MousePointer::Default);  // closed meanwhile
  RichTextBox& box = windows.ViewLogForm->TextViewLog;
  const int selected = box.SelStart();
  const bool again = !search.FindFirstTime && static_cast<float>(selected) == search.FindLastPos;
  const auto start = static_cast<std::size_t>(again ? selected + 1 : selected);
  const std::string& text = box.Text;
  const std::size_t hit =
      search.FindMatchCase != 0
          ? Search(text, search.FindText, start, search.FindDirection)
          : Search(UpperCase(text), UpperCase(search.FindText), start, search.FindDirection);
  if (hit == NoHit) {
    MsgBox({"Cannot find \"" + search.FindText + "\"", ProgramTitle});
  } else {
    box.Select(static_cast<int>(hit), static_cast<int>(search.FindText.size()));
    if (windows.FindForm.IsLoaded()) windows.FindForm->Unload();
  }
  search.FindLastPos = static_cast<float>(box.SelStart());
  search.FindFirstTime = false;
  CurrentHost().SetMousePointer(MousePointer::Default);
}

}  // namespace qel
