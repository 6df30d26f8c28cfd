// What the main window shows of the current file, its status line, and its animation.
#include <array>

#include "core/Surroundings.h"
#include "modemlog/LogExamination.h"
#include "ui/frmMain.h"
#include "ui/frmReport.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"
namespace qel {

namespace {

// A line for the status bar. The complaints are bold and stand for some seconds.
struct StatusMessage {
  const char* Text;
  bool Timed;
  bool Bold;
};

constexpr std::array<StatusMessage, 16> StatusMessages = {{
    {"", false, false},
    {"Enter the starting date for the report by clicking on the calendar or typing.", false, false},
    {"Enter the ending date for the report by clicking on the calendar or typing.", false, false},
    {"Exit Qelmark.", false, false},
    {"Process your report.", false, false},
    {"View the Modem Log File.", false, false},
    {"Click on the calendar to enter a date without typing.", false, false},
    {"No Modem Log Found!", true, true},
    {"Corruption Detected in Modem Log File!", true, true},
    {"Invalid date entry!", true, true},
    {"The start date cannot be less than the first entry in modem log!", true, true},
    {"The end date cannot be less than the start date!", true, true},
    {"The end date cannot be greater than the last entry in modem log!", true, true},
    {"The start date cannot be greater than the end date!", true, true},
    {"", false, false},
    {"", false, false},
}};

constexpr int AnimFrames = 19;

}  // namespace

void frmMain::ShowStatLabels(bool visible) {
  for (Label* label :
       {&LabelHeading, &LabelHeading2, &LabelLogName, &LabelLogName2, &LabelLogPath, &LabelLogPath2,
        &LabelLogLength, &LabelLogLength2, &LabelLogEntries, &LabelLogEntries2, &LabelLogFirst,
        &LabelLogFirst2, &LabelLogLast, &LabelLogLast2, &LabelLogSpan, &LabelLogSpan2})
    label->Visible = visible;
}

void frmMain::SetStatDisplay() {
  SetTrace("frmMain", "SetStatDisplay");
  const bool found = findings.LogExists || logFile.ArchiveOpen;
  LabelHeading.Caption = logFile.ArchiveOpen ? "Archive/Log Details" : "Modem Log Details";
  LabelLogName2.Caption = found ? PathText(logFile.CurrentLogFile) : "Log Not Found";
  LabelLogPath2.Caption = PathText(logFile.CurrentLogDir);
  LabelLogName2.ToolTipText = LabelLogPath2.ToolTipText = PathText(logFile.CurrentLogPath);
  for (Label* label : {&LabelLogLength2, &LabelLogEntries2, &LabelLogFirst2, &LabelLogLast2, &LabelLogSpan2})
    label->Caption = "N/A";
  if (findings.LogCorrupt || findings.LogInvalid) return;
  LabelLogLength2.Caption = LengthText(findings.LogLength);
  LabelLogEntries2.Caption = NumberText(findings.LogEntries);
  if (found && !findings.LogEmpty) SetDateStatistics();
}

void frmMain::SetDateStatistics() {
  LabelLogFirst2.Caption = FormatDate(findings.FirstEntryDate, "Short Date");
  LabelLogLast2.Caption = FormatDate(findings.LastEntryDate, "Short Date");
  LabelLogSpan2.Caption = NumberText(DaysBetween(findings.FirstEntryDate, findings.LastEntryDate)) + " Days";
}

void frmMain::SetStatus(int index) {
  StatusIndex = Int16(index);
  ShowStatus();
}

// A complaint is not overwritten by a mere prompt: it stands until its time is over.
void frmMain::ShowStatus() {
  if (StatusHold) return;
  shownStatus = StatusIndex;
  const StatusMessage& message = StatusMessages[static_cast<std::size_t>(int{StatusIndex})];
  Font font = StatusBarMain.Font;
  font.Bold = message.Bold;
  StatusBarMain.Font = font;
  StatusBarMain.SetText(message.Text);
  StatusHold = message.Timed;
  Timer1.Enabled = message.Timed;
}

void frmMain::Timer1_Timer() {
  StatusHold = false;
  Timer1.Enabled = false;
  ShowStatus();
}

// Two rounds forward, two rounds back.
void frmMain::TimerAnim_Timer() {
  animFrame += animBackward ? -1 : 1;
  if (animFrame > AnimFrames || animFrame < 1) {
    animFrame = animBackward ? AnimFrames : 1;
    if (animSecondRound) animBackward = !animBackward;
    animSecondRound = !animSecondRound;
  }
  PicAnimQel.Frame = animHidden ? Picture::NoFrame : int{animFrame};
}

// The box stays, so that it can be clicked again.
void frmMain::PicAnimQel_DblClick() {
  animHidden = !animHidden;
  PicAnimQel.Frame = animHidden ? Picture::NoFrame : int{animFrame};
}

void frmMain::StatusText(const std::string& text) {
  Font font = StatusBarMain.Font;
  font.Bold = false;
  StatusBarMain.Font = font;
  StatusBarMain.SetText(text);
}

void frmMain::ShowProgress(bool visible) {
  if (visible) StatusBarMain.ToolTipText = "";
  ProgressBar1.SetValue(0);
  ProgressBar1.Visible = visible;
  // The user may look at the report window meanwhile.
  if (windows.ReportForm.IsLoaded()) windows.ReportForm->AnalysisUnderWay = visible;
}

// Until the next work begins; the told text stands in the bar.
void frmMain::WorkFailed(const std::string& reason) { StatusBarMain.ToolTipText = reason; }

void frmMain::Progress(Int16 percent) { ProgressBar1.SetValue(percent); }

void frmMain::ShowReport() { windows.ReportForm->ShowAnalysis(); }

}  // namespace qel
