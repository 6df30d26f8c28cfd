#include <gtest/gtest.h>

#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/TextControls.h"
#include "support/ScriptedHost.h"

namespace qel {
namespace {

// A window that notes what happens to it.
class frmSample : public Form {
 public:
  explicit frmSample(qel::Screen& screen) : Form("frmSample", screen) {
    inputStarting.GotFocus = [this] { events += "in "; };
  }

  Label lblTitle{*this, "lblTitle"};
  TextBox inputStarting{*this, "inputStarting"};
  Button btnOK{*this, "btnOK"};
  Button btnClose{*this, "btnClose"};
  std::string events;

 private:
  void Form_Load() override { events += "load "; }
  void Form_Resize() override { events += "resize "; }
  void Form_Activate() override { events += "activate "; }
};

class FormTest : public ::testing::Test {
 protected:
  ScriptedHost host;
  Screen screen;
  frmSample sample{screen};
};

TEST_F(FormTest, LoadsLaysOutAndActivatesInThatOrder) {
  sample.Show();
  EXPECT_EQ(sample.events, "load resize in activate ");
  EXPECT_EQ(sample.ActiveControl(), &sample.inputStarting);
  sample.Width = 9000;
  sample.Show();
  EXPECT_EQ(sample.events, "load resize in activate resize ") << "it was in front already";
  frmSample other(screen);
  other.Show();
  sample.Activate();
  EXPECT_EQ(sample.events, "load resize in activate resize activate ");
  EXPECT_EQ(screen.LoadedForm("frmSample"), &sample);
}

TEST_F(FormTest, TheTabKeyPassesOverWhatCannotHaveTheFocus) {
  sample.Show();
  sample.btnOK.Enabled = false;
  sample.MoveFocusOn();
  EXPECT_TRUE(sample.btnClose.HasFocus());
  sample.MoveFocusOn();
  EXPECT_TRUE(sample.inputStarting.HasFocus());
  sample.MoveFocusOn(true);
  EXPECT_TRUE(sample.btnClose.HasFocus());
}

}  // namespace
}  // namespace qel
