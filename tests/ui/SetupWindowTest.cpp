#include "platform/TextConversion.h"
#include "settings/SettingsTables.h"
#include "support/Cases.h"
#include "support/FailingDisk.h"
#include "support/WindowTest.h"

namespace qel {
namespace {

enum SetupTab { General = 1, Modem, ServicesTab, Costs, Format, Errors, HolidaysTab, Report };

// The live setting of this name as text.
std::string ValueOf(const std::string& name) {
  for (const auto settings : {GeneralSettings(), ModemSettings(), CostSettings()})
    for (const Setting& setting : settings) {
      if (setting.Name != name) continue;
      if (const auto* text = std::get_if<std::string*>(&setting.Place)) return **text;
      if (const auto* whole = std::get_if<Int16*>(&setting.Place)) return NumberText(**whole);
      if (const auto* whole = std::get_if<Int32*>(&setting.Place)) return NumberText(**whole);
      return NumberText(*std::get<double*>(setting.Place));
    }
  throw std::out_of_range(name);
}

class SetupWindowTest : public WindowTest {
 protected:
  SetupWindowTest() {
    ModemLogDir = DefaultLogDir = folder.Path() + "/";
    ModemLogFile = "ModemLog.txt";
    folder.Put(ModemLogFile, usable);
  }

  static TextBox& Field(const std::string& name) { return dynamic_cast<TextBox&>(*SetupForm->Find(name)); }
  static void TypeAndLeave(const std::string& name, const std::string& text) {
    Field(name).UserText(text);
    SetupForm->TabStrip1.SetFocus();
  }
};

TEST_F(SetupWindowTest, AFieldTakesItsTextOrSaysWhyNot) {
  UserStartPref = "User Defined";
  for (const auto& [tab, field, typed, shown, setting, value, outcome] : Cases<7>("ui/SetupFields")) {
    SCOPED_TRACE(field + " " + typed);
    OpenOptions(std::stoi(tab));
    TypeAndLeave(field, typed);
    EXPECT_EQ(ProcedureTrace, field + "_LostFocus");
    EXPECT_EQ(Field(field).Text(), shown);
    EXPECT_EQ(ValueOf(setting), value);
    EXPECT_EQ(host.Showed("beep"), outcome != "taken");
    EXPECT_EQ(Field(field).Refusal().empty(), outcome == "taken");
    EXPECT_EQ(Field(field).HasFocus(), outcome == "kept");
    SetupForm->btnCancel.UserClick();
    EXPECT_FALSE(SetupForm.IsLoaded()) << "whatever the field holds";
    NoDisconData = CostPerMeg = 0;
  }
}

TEST_F(SetupWindowTest, ALimitBeyondItsWidthIsToldAndNotTaken) {
  OpenOptions(General);
  TypeAndLeave("txtMaxConnections", "40000");
  EXPECT_NE(host.messages.at(0).Text.find("Error code: 6"), std::string::npos);
  EXPECT_EQ(MaxConnections, 200);
  EXPECT_NE(SetupForm->txtMaxConnections.Refusal(), "");
}

TEST_F(SetupWindowTest, TheMostServicesAreNoFewerThanThereAre) {
  AddService("A", "1", "");
  AddService("B", "2", "");
  frmSetup& window = OpenOptions(General);
  TypeAndLeave("txtMaxServices", "1");
  EXPECT_EQ(host.messages.at(0).Text,
            "You are currently using more services than this.\n"
            "Please reduce the number of defined services and try again!");
  EXPECT_EQ(window.txtMaxServices.Text(), "10");
  TypeAndLeave("txtMaxServices", "2");
  EXPECT_EQ(window.lblServices.Caption(), "2 Services (Max 2)");
  EXPECT_EQ(window.lblServices.ForeColor(), SystemColour::Warning);
  EXPECT_FALSE(window.btnNew.Enabled || window.btnCopy.Enabled || window.btnScan.Enabled);
}

TEST_F(SetupWindowTest, TheLogIsTypedOrBrowsedFor) {
  frmSetup& window = OpenOptions(General);
  EXPECT_EQ(window.txtLogName.Text(), folder.Path("ModemLog.txt"));
  TypeAndLeave("txtLogName", folder.Path("none.txt"));
  EXPECT_EQ(window.txtLogName.Text(), folder.Path("ModemLog.txt"));
  EXPECT_FALSE(window.txtLogName.Refusal().empty());
  {
    FailingDisk closed;
    const DiskInPlace inPlace(closed);
    closed.FailFrom(1, EACCES);
    TypeAndLeave("txtLogName", folder.Path("closed/ModemLog.txt"));
  }
  EXPECT_EQ(window.txtLogName.Text(), folder.Path("ModemLog.txt"));
  EXPECT_EQ(window.txtLogName.Refusal(),
            "\"" + folder.Path("closed/ModemLog.txt") + "\" cannot be reached: Permission denied.");
  EXPECT_TRUE(host.messages.empty());
  folder.Put("M\xC3\xA4rz.log", usable);
  TypeAndLeave("txtLogName", folder.Path("M\xE4rz.log"));
  EXPECT_EQ(ModemLogFile, "M\xC3\xA4rz.log");
  EXPECT_EQ(window.txtLogName.Refusal(), "");

  const std::string unspeakable = "\xD0\xB6.log";  // a letter that no text of the program can show
  std::filesystem::create_directory(folder.Path("far"));
  folder.Put("far/" + unspeakable, usable);
  host.paths = {std::nullopt, folder.Path("ModemLog.txt"), folder.Path("far/" + unspeakable)};
  window.cmdBrowse.UserClick();
  EXPECT_EQ(ModemLogFile, "M\xC3\xA4rz.log") << "cancelled";
  EXPECT_EQ(host.dialogs[0].FileName, folder.Path("M\xC3\xA4rz.log"));
  window.cmdBrowse.UserClick();
  EXPECT_TRUE(host.messages.empty());
  window.cmdBrowse.UserClick();
  EXPECT_EQ(host.messages.at(0).Title, "WARNING");
  EXPECT_EQ(window.txtLogName.ToolTipText(), " " + folder.Path("far/?.log") + " ");
  EXPECT_EQ(ModemLogDir, folder.Path() + "/") << "not before the field is left";
  window.TabStrip1.SetFocus();
  EXPECT_EQ(ModemLogDir + ModemLogFile, folder.Path("far/" + unspeakable));
}

TEST_F(SetupWindowTest, TheDurationIsDividedAsTimesAreInTheRegion) {
  TimeSeparator = ".";
  frmSetup& window = OpenOptions(Errors);
  EXPECT_EQ(window.Label8.Caption(), "hh.mm.ss");
  EXPECT_EQ(window.mskNoDisconDuration.Text(), "00.15.00");
  TypeAndLeave("mskNoDisconDuration", "01.30.05");
  EXPECT_EQ(NoDisconDuration, 1865);
}

TEST_F(SetupWindowTest, CostsAndErrorsCanBeSetWhileTheyCount) {
  NoDisconDuration = 1860;
  NoDisconData = 2500;
  CalcCosts = false;
  frmSetup& window = OpenOptions(Errors);
  const auto shown = [&] { return window.mskNoDisconDuration.Text() + " " + window.mskNoDisconData.Text(); };
  EXPECT_EQ(shown(), "00:31:00 2,500");
  window.optShowErrors.UserClick();
  EXPECT_EQ(shown(), "00:00:00 0");
  EXPECT_FALSE(ShowErrors || window.mskNoDisconDuration.Enabled || window.mskNoDisconData.Enabled);
  EXPECT_EQ(window.mskNoDisconData.BackColor(), SystemColour::MenuBackground);
  window.optShowErrors.UserClick();
  EXPECT_EQ(shown(), "00:31:00 2,500");
  EXPECT_FALSE(window.txtDialCost.Enabled || window.lblCostPerMeg.Enabled);
  window.TabStrip1.UserSelectTab(Costs);
  window.optCalcCosts.UserClick();
  EXPECT_TRUE(CalcCosts && window.txtDialCost.Enabled && window.lblCostPerMeg.Enabled);
  EXPECT_EQ(window.txtDialCost.BackColor(), SystemColour::WindowBackground);
}

TEST_F(SetupWindowTest, AStartingDatePreferenceOpensItsOwnField) {
  UserStartPref = "";
  frmSetup& window = OpenOptions(Report);
  EXPECT_EQ(window.lstStartDate.Text() + window.mskUserDate.Text(), "Last Log Entry01/15/1999");
  const Control* const fields[] = {&window.lstWeekStart, &window.lstMonthStart, &window.mskUserDate};
  for (int choice = 0; choice < 5; ++choice) {
    window.lstStartDate.UserChoose(choice);
    EXPECT_EQ(UserStartPref, window.lstStartDate.Items()[static_cast<std::size_t>(choice)]);
    for (int field = 0; field < 3; ++field) EXPECT_EQ(fields[field]->Enabled(), field == choice - 2);
  }
  EXPECT_EQ(window.lblWeekStart.ForeColor(), SystemColour::GreyText);
  window.lstStartDate.UserChoose(2);
  window.lstWeekStart.UserChoose(6);
  window.lstStartDate.UserChoose(3);
  window.lstMonthStart.UserChoose(1);
  window.optFormat[1].UserClick();
  EXPECT_EQ(std::tuple(UserStartOfWeek, UserStartOfMonth, UserReportPref), std::tuple(6, 1, 1));
}

TEST_F(SetupWindowTest, CancelPutsBackAllButTwoSettings) {
  AddService("A", "1", "2").Tariffs[0].DialRate = 0.5;
  UserStartDate = Today();
  frmSetup& window = OpenOptions(Report);
  ModemLogFile = "other.txt";
  ModemReads = "R";
  NoDisconDuration = DialCost = NoDisconData = CostPerMeg = 7;
  UserStartOfWeek = 3;
  WarningSoundFile = "bell.wav";
  Services[0].ServiceName = "B";
  Services[0].Tariffs[0].DialRate = 1;
  UsedServices = 0;
  window.chkAMPM.UserClick();
  EXPECT_TRUE(ForceAMPM);
  window.optFlatToolBars.Value = false;
  window.btnCancel.UserClick();
  EXPECT_EQ(ModemLogFile + ModemReads + WarningSoundFile, "ModemLog.txtREADS");
  EXPECT_EQ(std::tuple(NoDisconDuration, DialCost, UserStartOfWeek), std::tuple(900, 0.2, 0));
  EXPECT_EQ(std::tuple(UsedServices, Services[0].ServiceName), std::tuple(1, "A"));
  EXPECT_EQ(Services[0].Tariffs[0].DialRate, 0.5);
  EXPECT_EQ(TimeFormat, "Long Time");
  EXPECT_EQ(std::tuple(NoDisconData, CostPerMeg), std::tuple(7, 7));
  EXPECT_TRUE(FlatToolbars && !OptionsChanged && !LogPathChanged);
}

TEST_F(SetupWindowTest, SavingStoresAndTellsTheMainWindowWhatChanged) {
  UserStartDate = Today();
  LogCorrupt = LogTooBig = true;
  OpenOptions(Modem);
  TypeAndLeave("TextOptReads", "got");
  SetupForm->btnDefaults.UserClick();
  EXPECT_EQ(SetupForm->TextOptReads.Text(), "READS");
  TypeAndLeave("TextOptWrites", "put");
  SetupForm->chkAMPM.Value = true;
  SetupForm->btnSave.UserClick();
  EXPECT_FALSE(SetupForm.IsLoaded() || OptionsChanged || LogPathChanged);
  EXPECT_TRUE(LogCorrupt && LogTooBig);
  EXPECT_EQ(TimeFormat, "h:mm:ss AMPM");
  folder.Put("other.txt", usable);
  OpenOptions(General);
  TypeAndLeave("txtLogName", folder.Path("other.txt"));
  SetupForm->optFlatToolBars.UserClick();
  SetupForm->btnSave.UserClick();
  EXPECT_TRUE(OptionsChanged && LogPathChanged);
  EXPECT_FALSE(LogCorrupt || LogTooBig);
  ReadUserParameters();
  EXPECT_EQ(ModemLogFile + ModemWrites, "other.txtPUT");
  EXPECT_FALSE(FlatToolbars);
}

TEST_F(SetupWindowTest, ATabBringsItsPageAndItsButton) {
  frmSetup& window = OpenOptions(General);
  EXPECT_TRUE(window.txtLogName.HasFocus());
  for (int tab = General; tab <= Report; ++tab) {
    EXPECT_TRUE(window.Settings[static_cast<std::size_t>(tab - 1)].Visible);
    EXPECT_EQ(window.btnDefaults.Visible(), tab == Modem);
    EXPECT_EQ(window.fralblServices.Visible(), tab == ServicesTab);
    KeyPress press{.Character = '\t', .Control = true};
    window.KeyDown(press);
  }
  EXPECT_EQ(window.TabStrip1.SelectedTab(), General);
  for (const int tab : {Report, HolidaysTab}) {
    KeyPress press{.Character = '\t', .Shift = true, .Control = true};
    window.KeyDown(press);
    EXPECT_EQ(window.TabStrip1.SelectedTab(), tab);
  }
}

TEST_F(SetupWindowTest, TheIconsOpenTheSystemsSettingsWhereThereAreAny) {
  class : public ScriptedHost {
   public:
    std::string installed = "systemsettings kcm_regionandlang";

   private:
    void StartProgram(const std::string& command) override {
      if (command != installed) Raise(FileNotFound);
      ScriptedHost::StartProgram(command);
    }
  } oneProgram;
  frmSetup& window = OpenOptions(Format);
  EXPECT_EQ(window.lblPreview.Caption() + window.lblLongDate.Caption(),
            "$1,234,567.89Friday, January 15, 1999");
  SetHost(oneProgram);
  window.Icon[0].UserClick();
  EXPECT_EQ(oneProgram.transcript.back(), "program: systemsettings kcm_regionandlang");
  window.TabStrip1.UserSelectTab(Modem);
  window.Icon[1].UserClick();
  EXPECT_EQ(oneProgram.messages.back().Text, "No program for these settings was found on this system.");
  window.btnCancel.UserClick();
  EXPECT_EQ(oneProgram.messages.back().Title, "Windows Regional Settings");

  oneProgram.installed = "";
  OpenOptions(Format).Icon[0].UserClick();
  SetupForm->btnCancel.UserClick();
  EXPECT_EQ(oneProgram.messages.back().Title, "QEL Options") << "nothing was opened that could be changed";
  SetHost(host);
}

TEST_F(SetupWindowTest, HolidaysStandInOrderOnceEachFromTodayOn) {
  const Date today = Today();
  UsedHolidays = 3;
  Holidays[0] = today - 1;
  Holidays[1] = today + 10;
  Holidays[2] = today + 20;
  frmSetup& window = OpenOptions(HolidaysTab);
  EXPECT_EQ(window.CalHolidays.Value(), today + 10);
  EXPECT_EQ(window.lblUsedHolidays.Caption(), "2 Holidays (Max 100)");
  EXPECT_TRUE(window.lblPastHolidays.Visible &&
              window.lblPastHolidays.Caption().starts_with("1 holiday that"));
  const struct {
    Date day;
    const char *list, *chosen;
    bool refused;
  } cases[] = {
      {today - 1, "1/25/1999 2/4/1999 ", "1/25/1999", true},
      {today, "1/15/1999 1/25/1999 2/4/1999 ", "1/15/1999", false},
      {today + 20, "1/15/1999 1/25/1999 2/4/1999 ", "2/4/1999", true},
      {today + 21, "1/15/1999 1/25/1999 2/4/1999 2/5/1999 ", "2/5/1999", false},
  };
  for (const auto& c : cases) {
    host.transcript.clear();
    window.CalHolidays.UserPick(c.day);
    window.CalHolidays.UserDblClick();
    std::string list;
    for (const std::string& item : window.lstHolidays.Items()) list += item + " ";
    EXPECT_EQ(list, c.list);
    EXPECT_EQ(*(window.lstHolidays.Items().begin() + window.lstHolidays.ListIndex()), c.chosen);
    EXPECT_EQ(host.Showed("beep"), c.refused);
    EXPECT_EQ(window.CalHolidays.Refusal().empty(), !c.refused);
  }
  window.btnRemove.UserClick();
  EXPECT_EQ(window.lstHolidays.ListIndex(), 2) << "the last one, now that the chosen one has gone";
  EXPECT_EQ(window.CalHolidays.Value(), today + 20);
  EXPECT_EQ(Holidays[0], today - 1) << "not before saving";
  window.btnSave.UserClick();
  EXPECT_EQ(std::tuple(UsedHolidays, Holidays[0]), std::tuple(3, today));
  EXPECT_FALSE(OpenOptions(HolidaysTab).lblPastHolidays.Visible);
}

TEST_F(SetupWindowTest, TheHundredAndFirstHolidayIsRefused) {
  frmSetup& window = OpenOptions(HolidaysTab);
  for (int i = 0; i < 100; ++i) window.btnAdd.UserClick();  // each moves the calendar on
  EXPECT_FALSE(host.Showed("beep"));
  window.btnAdd.UserClick();
  EXPECT_TRUE(host.Showed("beep"));
  EXPECT_EQ(window.lstHolidays.ListCount(), 100);
  EXPECT_EQ(window.lblUsedHolidays.ForeColor(), SystemColour::Warning);
  EXPECT_NE(window.CalHolidays.Refusal(), "");
  window.lstHolidays.UserDblClick();
  EXPECT_EQ(window.CalHolidays.Refusal(), "") << "there is room again";
  EXPECT_EQ(window.lblUsedHolidays.ForeColor(), SystemColour::WindowText);
}

TEST_F(SetupWindowTest, TheMainWindowFollowsTheOptions) {
  folder.Put("other.txt", LogOf("02-01-1999", "02-20-1999"));
  UserStartPref = "First Log Entry";
  UserStartDate = Today();
  Show(usable);
  LogTooBig = true;
  host.actions = {[this] {
    TypeAndLeave("txtLogName", folder.Path("other.txt"));
    SetupForm->optShowToolbars.UserClick();
    SetupForm->lstStartDate.SetText("Last Log Entry");
    MainForm->Activate();  // as the closing window may lead to
    SetupForm->btnSave.UserClick();
  }};
  MainForm->ToolbarMain.UserButtonClick("Setup");
  EXPECT_EQ(CurrentLogPath, folder.Path("other.txt"));
  EXPECT_EQ(MainForm->inputStarting.Text(), "02/20/1999");
  EXPECT_FALSE(MainForm->ToolbarMain.Visible);
  EXPECT_EQ(host.messages.at(0).Text,
            "Some changed options will NOT take\neffect until the program is re-started.");
  EXPECT_TRUE(host.messages.size() == 1 && !OptionsChanged);
  folder.Put("archive.qel", usable);
  MainForm->OpenArchive(folder.Path("archive.qel"));
  host.actions = {[this] {
    TypeAndLeave("txtLogName", folder.Path("ModemLog.txt"));
    SetupForm->btnSave.UserClick();
  }};
  MainForm->mnuSetup.UserClick();
  EXPECT_EQ(CurrentLogPath, folder.Path("archive.qel"));
  EXPECT_EQ(MainForm->mnuOptimize.Caption(), "&Optimize Archive");
  MainForm->mnuOpenLog.UserClick();
  EXPECT_EQ(CurrentLogPath, folder.Path("ModemLog.txt"));
}

}  // namespace
}  // namespace qel
