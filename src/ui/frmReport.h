// The report window: Summary and Details, each as text and as a list.
#pragma once

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/ListView.h"
#include "controls/TextControls.h"

namespace qel {

class frmReport : public Form {
 public:
  frmReport();

  MenuItem mnuFile{*this, "mnuFile"};
  MenuItem mnuSaveAS{*this, "mnuSaveAS"};
  MenuItem mnuPrint{*this, "mnuPrint"};
  MenuItem mnuExit{*this, "mnuExit"};
  MenuItem mnuView{*this, "mnuView"};
  MenuItem mnuSummary{*this, "mnuSummary"};
  MenuItem mnuDetails{*this, "mnuDetails"};
  MenuItem mnuOptions{*this, "mnuOptions"};
  MenuItem mnuFormatStd{*this, "mnuFormatStd"};
  MenuItem mnuListView{*this, "mnuListView"};
  MenuItem mnuNumConnections{*this, "mnuNumConnections"};
  MenuItem mnuAutoArrange{*this, "mnuAutoArrange"};
  MenuItem mnuFont{*this, "mnuFont"};
  MenuItem mnuFontIncrease{*this, "mnuFontIncrease"};
  MenuItem mnuFontDecrease{*this, "mnuFontDecrease"};
  MenuItem mnuSaveSettings{*this, "mnuSaveSettings"};

  Toolbar Toolbar1{*this,
                   "Toolbar1",
                   {"", "Save", "Print", "", "Exit", "", "Summary", "Detail", "", "Standard", "List View", "",
                    "Bigger", "Smaller", "", "ShowNums"}};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  StatusBar StatusBar1{*this, "StatusBar1"};
  ListView ListView1{*this, "ListView1"};
  Frame fraReportHeader{*this, "fraReportHeader"};
  Label RepTitle{*this, "RepTitle"};
  Label RepBegin{*this, "RepBegin"};
  Label RepEnd{*this, "RepEnd"};
  Label RepPeriod{*this, "RepPeriod"};
  Frame fraNoConn{*this, "fraNoConn"};
  Label RepWarnNoCon1{*this, "RepWarnNoCon1"};
  Frame fraWarning{*this, "fraWarning"};
  Label RepWarn1{*this, "RepWarn1"};
  Label RepWarn2{*this, "RepWarn2"};
  Label RepWarn3{*this, "RepWarn3"};
  RichTextBox ReportTextBox{*this, "ReportTextBox"};

  void ShowAnalysis();
  void OpenReport(const std::string& path);

 private:
};

extern TheForm<frmReport> ReportForm;

}  // namespace qel
