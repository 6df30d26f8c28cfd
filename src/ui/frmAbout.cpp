#include "ui/frmAbout.h"

#include <string>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "core/Version.h"
#include "platform/Files.h"
#include "ui/HelpNumbers.h"

namespace qel {

namespace {

// What tells of the system where the store names no tool for it, in the order of trying.
const char* const InformationTools[] = {"/usr/bin/hardinfo2", "/usr/bin/hardinfo", "/usr/bin/kinfocenter"};

std::string StoredText(const RegistryStore& store, const char* key, const char* name) {
  const SettingValue value = QueryValue(store, RegistryRoot::LocalMachine, key, name);
  const auto* text = std::get_if<std::string>(&value);
  return text ? *text : "";
}

// The tool that the store names, or nothing where there is none.
std::string StoredTool(const RegistryStore& store) {
  std::string path = StoredText(store, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH");
  if (path.empty()) path = StoredText(store, "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO");
  if (!path.empty() && FileExists(path)) return path;
  if (!path.empty() && FileExists(path + "/MSINFO32.EXE")) return path + "/MSINFO32.EXE";
  return "";
}

bool StartsOneOfTheSystem() {
  bool started = false;
  for (const char* tool : InformationTools) {
    IgnoreErrors([&] {
      CurrentHost().StartProgram(tool);
      started = true;
    });
    if (started) break;
  }
  return started;
}

}  // namespace

frmAbout::frmAbout(Windows& owner) : Window("frmAbout", owner) {
  HelpContextID = HelpAbout;
  lblWWW.Click = [] {
    SetTrace("frmAbout", "lblWWW_Click");
    Attempt([] { CurrentHost().OpenDocument(WebAddress); });
  };
  lblEmail.Click = [] {
    SetTrace("frmAbout", "lblEmail_Click");
    Attempt([] { CurrentHost().OpenDocument(std::string("mailto:") + MailAddress); });
  };
  MouseMove = [this] { PointAt(nullptr); };
  for (Label* label : {&lblCopyright, &lblRights, &lblTitle[0], &lblTitle[1], &lblTitle[2], &lblVersion})
    label->MouseMove = [this] { PointAt(nullptr); };
  for (Label* link : {&lblWWW, &lblEmail}) link->MouseMove = [this, link] { PointAt(link); };
}

void frmAbout::Form_Load() {
  SetTrace("frmAbout", "Form_Load");
  imgAbout.Visible = settings.ShowGraphic;
  lblVersion.Caption = "Version " + VersionText();
  for (Label& title : lblTitle) title.Caption = ProgramTitle;
  lblOS.Caption = places.OSName;
  lblWWW.Caption = WebAddress;
  lblEmail.Caption = MailAddress;
}

void frmAbout::Form_Activate() { CurrentHost().SetMousePointer(MousePointer::Default); }

// The link under the mouse is bold, and only that one.
void frmAbout::PointAt(const Label* pointed) {
  for (Label* link : {&lblWWW, &lblEmail}) {
    Font font = link->Font;
    font.Bold = link == pointed;
    link->Font = font;
  }
}

void frmAbout::StartSysInfo() {
  SetTrace("frmAbout", "StartSysInfo");
  std::string tool;
  Attempt([&] { tool = StoredTool(store); });
  if (!tool.empty())
    Attempt([&tool] { CurrentHost().StartProgram(tool); });
  else if (!StartsOneOfTheSystem())
    MsgBox({"System Information Is Unavailable At This Time", ProgramTitle});
}

}  // namespace qel
