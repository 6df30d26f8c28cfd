#include "core/ErrorHandler.h"

#include "core/Surroundings.h"
#include "core/Version.h"
#include "values/CodePage.h"

namespace qel {

namespace {

const std::string LockMessage =
    "QEL cannot gain access to your modem log file!\r\n"
    "\r\n"
    "Either another application or Windows process is using\r\n"
    "or has locked this file.\r\n"
    "\r\n"
    "If you are currently connected/on-line, then you should\r\n"
    "NOT be using QEL now! Please read the QEL 'Readme'\r\n"
    "file which explains how to use QEL.\r\n"
    "\r\n"
    "If not then try closing the other application or shutting\r\n"
    "down and re-starting your computer. QEL will now close.";

const std::string AccessMessage =
    "QEL cannot gain access to a file!\r\n"
    "\r\n"
    "Another application or Windows process is using\r\n"
    "or has locked this file.\r\n"
    "\r\n"
    "Try closing the other application or shutting down and\r\n"
    "re-starting your computer. QEL will now close.";

const std::string EndOfFileMessage =
    "This file has a nonstandard end-of-file marker, or an attempt was made to read beyond the end-of-file "
    "marker.";

struct ErrorRow {
  int number;
  std::string text;
  Buttons buttons = Buttons::OK;
  std::string title = "Disk Error";
  Icon icon = Icon::Exclamation;
  bool fatal = false;
};

const ErrorRow ErrorRows[] = {
    {52, "That filename is illegal.", Buttons::AbortRetryIgnore},
    {54, "Can't open your file for that type of access."},
    {55, "\nThis file is already open."},
    {57, "Internal disk error."},
    {61, "Disk is full. Continue?", Buttons::AbortRetryIgnore},
    {62, EndOfFileMessage, Buttons::AbortRetryIgnore},
    {64, "That filename is illegal.", Buttons::AbortRetryIgnore},
    {68, "That device appears unavailable.", Buttons::OKCancel},
    {70, LockMessage, Buttons::OK, "QEL - Lock Error", Icon::Critical, true},
    {71, "Insert a disk in the drive and close the door.", Buttons::OKCancel},
    {75, AccessMessage, Buttons::OK, "QEL - Access Error", Icon::Critical, true},
    {76, "That path doesn't exist.", Buttons::AbortRetryIgnore},
};

const ErrorRow* RowOf(int number) {
  for (const auto& row : ErrorRows)
    if (row.number == number) return &row;
  return nullptr;
}

std::string TraceLines() {
  const Surroundings& here = CurrentSurroundings();
  return "Module: " + here.ModuleTrace + NewLine + "Sub: " + here.ProcedureTrace + NewLine +
         "Ref: " + here.StepTrace + NewLine;
}

std::string EndOfFileTrace() {
  return TraceLines() + "Verion: " + VersionText() + NewLine + "OS: " + CurrentHost().SystemName() + NewLine;
}

std::string ReportOf(const RunTimeError& error) {
  return std::string("An Error has occurred during processing.") + NewLine + NewLine +
         "If you receive this error often then please note the" + NewLine +
         "following details and report them to QEL Technical" + NewLine + "Support by emailing " +
         MailAddress + "." + NewLine + NewLine + "Error code: " + std::to_string(error.Number()) + NewLine +
         "Description: " + error.Description() + NewLine +
         "Last DLL Error: " + std::to_string(error.SystemError()) + NewLine + TraceLines() +
         "Version: " + VersionText() + NewLine + "OS: " + CurrentHost().SystemName() + NewLine;
}

std::string ClosingParagraph() {
  return std::string(NewLine) + "The above information has been copied to the clipboard so" + NewLine +
         "you can paste it into your email message. Please supply" + NewLine +
         "any additional information which you think may help to" + NewLine + "determine the problem.";
}

// Nobody's work is lost by a hasty Enter: it ignores the error where it could end the program.
int DefaultOf(Buttons buttons) { return buttons == Buttons::AbortRetryIgnore ? 3 : 1; }

// Shown twice, once under the error's source, with the help on errors at hand, and once under the program's
// title; only the second answer counts.
Answer ShowReport(const RunTimeError& error) {
  const std::string report = ReportOf(error);
  CurrentHost().SetClipboardText(report);
  Message message{report + ClosingParagraph(), error.Source() + " - Error", Icon::Exclamation,
                  Buttons::AbortRetryIgnore, ErrorHelpTopic};
  message.DefaultButton = DefaultOf(message.buttons);
  CurrentHost().ErrorBox(error, message);
  message.Title = ProgramTitle;
  message.HelpContext = 0;
  return CurrentHost().ErrorBox(error, message);
}

Int16 ResultOf(Answer answer) {
  switch (answer) {
    case Answer::OK:
    case Answer::Retry:
      return 0;
    case Answer::Cancel:
    case Answer::Ignore:
      return 1;
    case Answer::Abort:
      return 2;
    default:
      return 3;
  }
}

}  // namespace

Int16 ErrorHandler(const RunTimeError& error) {
  if (error.Number() == 10) return 1;
  const ErrorRow* row = RowOf(error.Number());
  if (!row) return ResultOf(ShowReport(error));
  const std::string trace = error.Number() == PastEndOfFile ? EndOfFileTrace() : "";
  Message message{trace + row->text, row->title, row->icon, row->buttons};
  message.DefaultButton = DefaultOf(message.buttons);
  const Answer answer = CurrentHost().ErrorBox(error, message);
  return row->fatal ? Int16(3) : ResultOf(answer);
}

bool RepeatAfter(const RunTimeError& error) {
  const Int16 result = ErrorHandler(error);
  if (result > 1) CurrentHost().EndProgram();
  return result == 0;
}

}  // namespace qel
