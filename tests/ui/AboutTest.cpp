#include "support/WindowTest.h"

namespace qel {

class AboutTest : public WindowTest {};

TEST_F(AboutTest, WithoutASystemInformationToolThereIsAMessage) {
  AboutForm->Show();
  AboutForm->cmdSysInfo.UserClick();
  if (host.messages.empty()) GTEST_SKIP() << "this machine has a tool of its own";
  EXPECT_EQ(host.messages[0].Text, "System Information Is Unavailable At This Time");
}

}  // namespace qel
