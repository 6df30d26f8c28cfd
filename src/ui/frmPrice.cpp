#include "ui/frmPrice.h"

#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"
#include "reports/DetailReport.h"
#include "reports/HtmlPage.h"
#include "ui/HelpNumbers.h"
#include "ui/frmReport.h"
#include "values/CodePage.h"

namespace qel {

namespace {

std::string AsHtml(const std::string& text) { return FromUtf8Lossy(HtmlText(text)); }

std::string Row(const std::string& part, const std::string& text, const std::string& cost) {
  return "<tr><td>" + AsHtml(part) + "</td><td>" + AsHtml(text) + "</td><td align=\"right\">" + AsHtml(cost) +
         "</td></tr>";
}

std::string PriceHtml(const Settings& settings, const DetailLine& line) {
  const ConnectionRecord& c = line.Connection;
  std::string html = "<h2>" + AsHtml(PriceTitle(settings, line)) + "</h2><p><b>" +
                     AsHtml(GetServiceName(settings, c.Number)) + "</b><br/>" +
                     AsHtml(MomentText(c.StartDate, c.StartTime, settings.ForceAMPM) + " to " +
                            MomentText(c.EndDate, c.EndTime, settings.ForceAMPM) + ", " +
                            FormatTime(static_cast<float>(line.Seconds), false)) +
                     "</p><table width=\"100%\"><tr><th>Part</th><th>Reason</th><th>Amount</th></tr>";
  std::string before;
  for (const auto& [part, text, cost] : PriceLines(settings, line)) {
    html += Row(part == before ? "" : part, text, cost);
    before = part;
  }
  if (settings.CalcCosts)
    html += "<tr><td></td><th>Cost</th><th align=\"right\">" + AsHtml(MoneyText(line.ConnectionCost)) +
            "</th></tr>";
  return html + "</table>";
}

// Work on a report that is shown elsewhere leaves no trace in what that will be built from next.
template <typename Work>
void LeavingTheReport(const ReportOf& of, const Work& work) {
  Display unseen;
  const Meanwhile here(CurrentSurroundings().Display, &unseen);
  const Meanwhile asBefore(of.LastCosts, CallCosts(of.LastCosts));
  work();
}

}  // namespace

frmPrice::frmPrice(Windows& owner) : Window("frmPrice", owner) { HelpContextID = HelpPrice; }

void frmPrice::ShowPrice(const ReportOf& report, int connection) {
  of.emplace(report);
  Load();
  GoTo(connection);
  ShowModal();
}

void frmPrice::GoTo(int connection) {
  SetTrace("frmPrice", "GoTo");
  std::string html;
  int before = 0, behind = 0;
  const bool found = Attempt([&] {
    LeavingTheReport(*of, [&] {
      ForEachDetailLine(*of, [&](const DetailLine& line) {
        if (line.Index == connection) html = PriceHtml(of->settings, line);
        if (line.Index < connection) before = line.Index;
        if (line.Index > connection && behind == 0) behind = line.Index;
      });
    });
  });
  if (!found) return;
  shown = connection;
  previous = before;
  next = behind;
  docPrice.Html = html;
  Caption = "How Connection " + std::to_string(shown) + " Was Priced";
  btnPrevious.Enabled = previous != 0;
  btnNext.Enabled = next != 0;
  windows.ReportForm->SelectConnection(shown);
}

std::string frmPrice::Text() {
  std::string text;
  LeavingTheReport(*of, [&] { text = DetailReportText(*of, {true, shown}); });
  return text;
}

void frmPrice::btnCopy_Click() {
  SetTrace("frmPrice", "btnCopy_Click");
  Attempt([this] { CurrentHost().SetClipboardPage(Text(), HtmlPage(Caption, ToUtf8(docPrice.Html()))); });
}

void frmPrice::btnPrint_Click() {
  SetTrace("frmPrice", "btnPrint_Click");
  Attempt([this] { CurrentHost().Print({.Title = Caption, .Text = Text()}); });
}

}  // namespace qel
