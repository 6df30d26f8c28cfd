#include "core/Version.h"
#include "settings/Registry_Functions.h"
#include "support/WindowTest.h"

namespace qel {

class AboutTest : public WindowTest {};

TEST_F(AboutTest, ALinkIsBoldWhileTheMouseIsOverItAndOpensItsAddress) {
  AboutForm->Show();
  AboutForm->lblWWW.MouseMove();
  EXPECT_TRUE(AboutForm->lblWWW.Font().Bold && !AboutForm->lblEmail.Font().Bold);
  AboutForm->lblEmail.MouseMove();
  EXPECT_TRUE(!AboutForm->lblWWW.Font().Bold && AboutForm->lblEmail.Font().Bold);
  AboutForm->lblTitle[1].MouseMove();
  EXPECT_FALSE(AboutForm->lblWWW.Font().Bold || AboutForm->lblEmail.Font().Bold);
  AboutForm->lblEmail.UserClick();
  EXPECT_EQ(host.transcript.back(), std::string("document: mailto:") + MailAddress);
  EXPECT_EQ(ProcedureTrace, "lblEmail_Click");
}

TEST_F(AboutTest, TheSystemInformationToolIsTheStoredOneOrAMessage) {
  const auto store = [this](const char* path) {
    const std::string key = "SOFTWARE\\Microsoft\\Shared Tools Location";
    CreatNewKey(key, SettingsRoot);
    SetKeyValue(SettingsRoot, key, "MSINFO", folder.Path(path), REG_SZ);
  };
  store("tools");
  std::filesystem::create_directory(folder.Path("tools"));
  folder.Put("tools/MSINFO32.EXE", "");
  AboutForm->Show();
  AboutForm->cmdSysInfo.UserClick();
  EXPECT_EQ(host.transcript.back(), "program: " + folder.Path("tools") + "/MSINFO32.EXE");
  folder.Put("info", "");
  store("info");
  AboutForm->cmdSysInfo.UserClick();
  EXPECT_EQ(host.transcript.back(), "program: " + folder.Path("info"));
}

}  // namespace qel
