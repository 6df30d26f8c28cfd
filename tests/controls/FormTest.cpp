#include <gtest/gtest.h>

#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/TextControls.h"
#include "support/ScriptedHost.h"

namespace qel {
namespace {

// A window with a field that holds the focus while its text is bad, and that notes what happens to it.
class frmSample : public Form {
 public:
  frmSample() : Form("frmSample") {
    inputStarting.GotFocus = [this] { events += "in "; };
    inputStarting.LostFocus = [this] {
      events += "out ";
      if (inputStarting.Text == "bad") inputStarting.SetFocus();
    };
    btnOK.Click = [this] { events += "ok "; };
    btnClose.Click = [this] { Unload(); };
  }

  Label lblTitle{*this, "lblTitle"};
  TextBox inputStarting{*this, "inputStarting"};
  Button btnOK{*this, "btnOK"};
  Button btnClose{*this, "btnClose"};
  MenuItem mnuRecent0{*this, "mnuRecent", 0}, mnuRecent1{*this, "mnuRecent", 1};
  std::string events;
  bool refuses = false;

 private:
  void Form_Load() override { events += "load "; }
  void Form_Resize() override { events += "resize "; }
  void Form_Activate() override { events += "activate "; }
  bool Form_Unload() override { return !refuses; }
};

class FormTest : public ::testing::Test {
 protected:
  ScriptedHost host;
  TheForm<frmSample> sample;
};

TEST_F(FormTest, LoadsLaysOutAndActivatesInThatOrder) {
  sample->Show();
  EXPECT_EQ(sample->events, "load resize in activate ");
  EXPECT_EQ(sample->ActiveControl(), &sample->inputStarting);
  sample->Width = 9000;
  sample->Show();
  EXPECT_EQ(sample->events, "load resize in activate resize ") << "it was in front already";
  TheForm<frmSample> other;
  other->Show();
  sample->Activate();
  EXPECT_EQ(sample->events, "load resize in activate resize activate ");
  EXPECT_EQ(LoadedForm("frmSample"), &*sample);
}

TEST_F(FormTest, AFieldWithABadTextKeepsTheFocusAndTheClickFromHappening) {
  sample->Show();
  sample->events.clear();
  sample->inputStarting.Text = "bad";
  sample->btnOK.UserClick();
  EXPECT_EQ(sample->events, "out in ");
  EXPECT_TRUE(sample->inputStarting.HasFocus());
  sample->inputStarting.Text = "good";
  sample->btnOK.UserClick();
  EXPECT_EQ(sample->events, "out in out ok ");
}

TEST_F(FormTest, TheTabKeyPassesOverWhatCannotHaveTheFocus) {
  sample->Show();
  sample->btnOK.Enabled = false;
  sample->MoveFocusOn();
  EXPECT_TRUE(sample->btnClose.HasFocus());
  sample->MoveFocusOn();
  EXPECT_TRUE(sample->inputStarting.HasFocus());
  sample->MoveFocusOn(true);
  EXPECT_TRUE(sample->btnClose.HasFocus());
}

TEST_F(FormTest, ControlsAreFoundByNameAndPlaceInTheirArray) {
  EXPECT_EQ(sample->Find("btnOK"), &sample->btnOK);
  EXPECT_EQ(sample->Find("mnuRecent", 1), &sample->mnuRecent1);
  EXPECT_EQ(sample->Find("mnuRecent"), nullptr);
  EXPECT_EQ(sample->Find("btnNone"), nullptr);
}

TEST_F(FormTest, ModalShowingEndsWhenTheWindowIsUnloadedByItsOwnButton) {
  host.actions = {[this] { sample->btnOK.UserClick(); }, [this] { sample->btnClose.UserClick(); },
                  [this] { FAIL() << "the window has gone"; }};
  frmSample& window = *sample;
  window.ShowModal();
  EXPECT_FALSE(sample.IsLoaded());
  EXPECT_NE(window.events.find("ok"), std::string::npos);
  EXPECT_EQ(host.actions.size(), 1u);
  EXPECT_NE(&*sample, &window) << "the next one is made anew";
}

TEST_F(FormTest, AWindowMayRefuseToUnload) {
  sample->Show();
  sample->refuses = true;
  EXPECT_FALSE(sample->Unload());
  EXPECT_TRUE(sample->Visible());
  sample->refuses = false;
  EXPECT_TRUE(sample->Unload());
  EXPECT_EQ(LoadedForm("frmSample"), nullptr);
}

}  // namespace
}  // namespace qel
