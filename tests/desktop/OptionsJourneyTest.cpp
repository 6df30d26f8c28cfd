#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QTabBar>
#include <QTreeView>

#include "ProgramTest.h"
#include "platform/Files.h"

namespace qel {

class OptionsJourney : public ProgramTest {
 protected:
  // What the user does in the window that the next click brings up.
  void InTheNextWindow(std::function<void()> work) {
    act = [work = std::move(work)] { return work(), true; };
  }
  void InTheOptions(std::function<void()> work) {
    InTheNextWindow(std::move(work));
    ClickTool("frmMain", "ToolbarMain", "Setup");
  }
  static void SelectTab(const char* form, int tab) {
    auto& tabs = Get<QTabBar>(form, "TabStrip1");
    Click(tabs, tabs.tabRect(tab).center());
  }
  // Chooses an entry as the keyboard does: by its beginning.
  static void Pick(const char* form, const char* list, const char* entry) {
    auto& combo = Get<QComboBox>(form, list);
    combo.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&combo, entry);
    Settle();
    EXPECT_EQ(combo.currentText().toStdString(), entry);
  }
  void AddTariff(const char* name, const char* days, const char* start, const char* perCall,
                 const char* perMinute) {
    InTheNextWindow([=] {
      QTest::keyClicks(QApplication::focusWidget(), name);
      Pick("frmTariff", "lstDialTimeTariffDialDays", days);
      Pick("frmTariff", "lstDialTimeTariffDialStart", start);
      Pick("frmTariff", "lstDialTimeTariffDialEnd", "23:59");
      Type("txtDialTimeTariffDialRate", perCall, "frmTariff");
      Type("txtDialTimeTariffMinuteRate", perMinute, "frmTariff");
      Keep("frmTariff", name);
      Click(Get<QPushButton>("frmTariff", "btnOK"));
    });
    Click(Get<QPushButton>("frmService", "btnDialTimeTariffNew"));
  }
  static std::string Tariffs() {
    std::string names;
    for (const ListRow& row : ServiceForm->lstDialTimeTariff.Rows()) names += row.Text + ";";
    return names;
  }
  void EditTheService() {
    Type("txtDescription", "Evening Net", "frmService");
    SelectTab("frmService", 1);
    Click(Get<QRadioButton>("frmService", "optDialCost_1"), {8, 8});
    AddTariff("Always", "Everyday", "00:00", "0.20", "0.03");
    AddTariff("Evening", "Mon - Fri", "18:00", "0.10", "0.01");
    AddTariff("Feast", "Holidays", "00:00", "0.05", "0");
    EXPECT_EQ(Tariffs(), "Feast;Evening;Always;");
    Keep("frmService", "tariffs");
    SelectTab("frmService", 2);
    Click(Get<QRadioButton>("frmService", "optServiceCost_1"), {8, 8});
    Type("txtServiceFlexRate", "1.20", "frmService");
    Type("txtServiceFlexHours", "1", "frmService");
    Pick("frmService", "lstServiceFlexPeriod", "Month");
    Type("txtServiceFlexRate2", "0.60", "frmService");
    Keep("frmService", "service cost");
    SelectTab("frmService", 3);
    Click(Get<QCheckBox>("frmService", "chkWarnings"), {8, 8});
    Click(Get<QRadioButton>("frmService", "optWarning_1"), {8, 8});
    Type("txtWarndialupCost", "2", "frmService");
    Keep("frmService", "warning");
    Click(Get<QPushButton>("frmService", "btnOK"));
  }
  void EditInOptions(std::function<void()> work) {
    auto& list = Get<QTreeView>("frmSetup", "lstServices");
    Click(*list.viewport(), list.visualRect(list.model()->index(0, 0)).center());
    InTheNextWindow(std::move(work));
    Click(Get<QPushButton>("frmSetup", "btnEdit"));
  }
};

TEST_F(OptionsJourney, AServiceIsFoundDescribedPricedAndKept) {
  folder.Put("ModemLog.txt", ReadWholeFile(QEL_SOURCE_DIR "/share/samples/ModemLog.txt"));
  folder.Put("registry.reg", "REGEDIT4\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\General]\n\"Tips\"=\"False\"\n");
  Start();
  InTheOptions([this] {
    SelectTab("frmSetup", 2);
    Click(Get<QPushButton>("frmSetup", "btnScan"));
    EXPECT_EQ(SetupForm->lblServices.Caption(), "5 Services (Max 10)");
    EditInOptions([this] { EditTheService(); });
    Keep("frmSetup", "services");
    Click(Get<QPushButton>("frmSetup", "btnSave"));
  });
  EXPECT_EQ(asked.at(0), "Scan for Dialled Services");

  // Four calls on working evenings (35:00, 21:40, 68:59, 3:46) and one in the afternoon (6:09). Dial-up:
  // 4 x 0.10 + 129.4167 x 0.01 + 0.20 + 6.15 x 0.03 = 2.0787. Service: an hour at 1.20, 1:15:34 at 0.60.
  Type("inputStarting", "10051998");
  Type("inputEnding", "10161998");
  Click(Get<QPushButton>("frmMain", "btnProcess"));
  EXPECT_EQ(asked.back(), "User Defined Warnings");
  EXPECT_EQ(ReportForm->ListView1.Cell(2, 2), "Evening Net");
  EXPECT_EQ(ReportForm->ListView1.Cell(2, 8), "$4.03");
  Keep("frmReport", "evening net");

  Start();
  EXPECT_EQ(UsedServices, 5);
  EXPECT_EQ(Services[0].Tariffs[1].Description, "Evening");
  EXPECT_EQ(Services[0].FlexRate2, 0.6);
  EXPECT_EQ(Services[0].WarningDialup, 2);
}

}  // namespace qel
