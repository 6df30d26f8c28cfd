// The main window follows the default log: while a call stands, the panel tells what it has come to.
#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "core/Unattended.h"
#include "modemlog/DialledNumber.h"
#include "platform/Clock.h"
#include "ui/frmMain.h"
#include "values/DateFormat.h"

namespace qel {

namespace {

// A volume of another machine gives no word of what happens to its files.
constexpr int LooksWithoutWord = 10;

std::string TextOf(const Settings& settings, const RunningCall& call) {
  std::string text =
      GetServiceName(settings, call.Number) + ", " + FormatTime(static_cast<float>(call.Seconds), false);
  if (settings.CalcCosts) text += "\nCost so far: " + MoneyText(call.Cost);
  if (call.Change) {
    const Date at = call.Change->At;
    const bool today = WholeDay(at) == Today();
    text +=
        "\nPrice changes: " +
        (today ? FormatDate(at, TimeFormat(settings.ForceAMPM)) : MomentText(at, at, settings.ForceAMPM)) +
        ", " + call.Change->What;
  }
  for (const Warning& warning : call.Exceeded)
    text += "\n" + ServiceNameOf(settings.Services[warning.Service]) + ": " + warning.Text;
  return text;
}

}  // namespace

// Nobody has asked for this, so nobody is told of what goes wrong with it; the next look may find it mended.
void frmMain::TimerCall_Timer() {
  if (optionsOpen) return;
  std::optional<RunningCall> call;
  IgnoreErrors([&] {
    if (FollowLog()) call = CallUnderWay(followed->log, Now());
  });
  ShowCall(call);
  if (call) BeepAtThresholds(*call);
}

// Reads what the log has gained. False where it is not followed.
bool frmMain::FollowLog() {
  Unattended nobody;
  const Surroundings around(nobody, nobody);
  if (logFile.ArchiveOpen || !findings.LogExists || findings.LogCorrupt || findings.LogInvalid) {
    followed.reset();
    return false;
  }
  const Date from = period.PeriodStart <= Today() ? period.PeriodStart : 0;
  const bool begins = !followed || followed->from != from;
  if (begins) followed.emplace(settings, logFile.CurrentLogPath, from);
  if (begins || followed->watch.TakeWord() || ++followed->looksLeftOut >= LooksWithoutWord) {
    followed->looksLeftOut = 0;
    while (followed->log.ReadOn() != FileTail::Found::Same) continue;
  }
  return true;
}

void frmMain::ShowCall(const std::optional<RunningCall>& call) {
  LabelCall.Visible = LabelCall2.Visible = call.has_value();
  if (call) LabelCall2.Caption = TextOf(followed->settings, *call);
}

// At those that the call has reached since it was first seen.
void frmMain::BeepAtThresholds(const RunningCall& call) {
  const bool first = std::exchange(callStart, call.Start) != call.Start;
  std::set<Int16> exceeded;
  bool reached = false;
  for (const Warning& warning : call.Exceeded) {
    exceeded.insert(warning.Service);
    reached = reached || !exceededBefore.contains(warning.Service);
  }
  exceededBefore = std::move(exceeded);
  if (reached && !first) CurrentHost().Beep();
}

}  // namespace qel
