// A window with every kind of control, and a fixture that shows it in its toolkit window.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/ListView.h"
#include "controls/Lists.h"
#include "controls/Pickers.h"
#include "controls/TextControls.h"
#include "core/Surroundings.h"
#include "desktop/DesktopHost.h"
#include "desktop/FormFace.h"
#include "desktop/PictureWidget.h"
#include "desktop/UpDownButton.h"
#include "ui_frmDialog.h"
#include "ui_frmSample.h"

namespace qel {

class frmSample : public Form {
 public:
  explicit frmSample(qel::Screen& screen) : Form("frmSample", screen) { btnRun.ClickMovesFocus = false; }

  MenuItem mnuFile{*this, "mnuFile"}, mnuRecent{*this, "mnuRecent", 0}, mnuExit{*this, "mnuExit"};
  Toolbar Toolbar1{*this, "Toolbar1", {"", "Save", "View"}};
  Label lblTitle{*this, "lblTitle"}, lblPlaced{*this, "lblPlaced"};
  TextBox txtName{*this, "txtName"};
  MaskedEdit inputStarting{*this, "inputStarting"};
  RichTextBox txtReport{*this, "txtReport"};
  Button btnOK{*this, "btnOK"}, btnRun{*this, "btnRun"};
  CheckBox optTips{*this, "optTips"};
  OptionButton optText{*this, "optFormat", 0}, optList{*this, "optFormat", 1};
  ListBox lstNames{*this, "lstNames"};
  ComboBox lstUnit{*this, "lstUnit", ComboBox::Kind::PickOnly};
  ComboBox lstFree{*this, "lstFree", ComboBox::Kind::Editable};
  ListView ListView1{*this, "ListView1"};
  TabStrip TabStrip1{*this, "TabStrip1"};
  Calendar Calendar1{*this, "Calendar1"};
  UpDown UpDown1{*this, "UpDown1"};
  Picture Picture1{*this, "Picture1"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  StatusBar StatusBar1{*this, "StatusBar1"};
  Frame fraFree{*this, "fraFree"};
  Frame fraPage0{*this, "fraPage", 0}, fraPage1{*this, "fraPage", 1};
  Timer Timer1{*this, "Timer1", 10};

  std::string events;
  bool refuses = false;

 private:
  void Form_Resize() override { events += "resize "; }
  void Form_Activate() override { events += "activate "; }
  bool Form_Unload() override { return !refuses; }
};

// A modal window with one button of its own, and one that the design has too many.
class frmDialog : public Form {
 public:
  explicit frmDialog(qel::Screen& screen) : Form("frmDialog", screen) {}
  Button btnOK{*this, "btnOK"};
};

class DesktopTest : public ::testing::Test {
 protected:
  DesktopTest() {
    AttachFaces(windows.Screen,
                {{"frmSample", MakeWindow<QMainWindow, Ui::frmSample>},
                 {"frmDialog", MakeWindow<QDialog, Ui::frmDialog, Qt::Dialog>}},
                host.Loop);
    form.Timer1.Enabled = false;
    form.Show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&FaceOf(form)->Window()));
    form.events.clear();
  }
  ~DesktopTest() override { ReleaseFaces(windows.Screen); }

  // What the design calls by `name`.
  template <class Shown>
  Shown& Get(const char* name) {
    return *FaceOf(form)->Window().findChild<Shown*>(name);
  }
  void Click(QWidget& widget, const QPoint& at = {}) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
    Settle();
  }
  // Lets what is posted run.
  static void Settle() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  }

  Session session;
  Windows windows{session};
  DesktopHost host{windows};
  const Surroundings around{host, host};
  frmSample form{windows.Screen};
};

}  // namespace qel
