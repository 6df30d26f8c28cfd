#include "ui/frmCompare.h"

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "reports/ComparisonReport.h"
#include "reports/ReportDocument.h"
#include "reports/UseCharts.h"
#include "ui/HelpNumbers.h"
#include "ui/frmReport.h"

namespace qel {

frmCompare::frmCompare(Windows& owner) : Window("frmCompare", owner) {
  HelpContextID = HelpCompare;
  lstOffers.FullRowSelect = true;
  lstOffers.HideSelection = false;
  lstOffers.ItemClick = [this] { DrawSelected(); };
  lstOffers.DblClick = [this] { ShowCalls(); };
  lstOffers.KeyDown = [this](KeyPress& press) {
    if (press.key != Key::Enter) return;
    press.Handled = true;
    ShowCalls();
  };
  drwOffers.TargetClick = [this](int) { ShowCalls(); };
}

void frmCompare::ShowComparison() {
  SetTrace("frmCompare", "ShowComparison");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  Attempt([this] { services = CompareTariffs(session.Reported()); });
  CurrentHost().SetMousePointer(MousePointer::Default);
  const std::string why = WhyNotCompared(settings, !services.empty());
  if (!why.empty()) {
    MsgBox({"Tariffs cannot be compared: " + why + ".", "Compare Tariffs", Icon::Information});
    return;
  }
  Load();
  FillOffers();
  ShowModal();
  if (wanted == 0) return;
  windows.ReportForm->ShowAnalysis();
  windows.ReportForm->ShowConnection(wanted);
}

void frmCompare::FillOffers() {
  ReportDocument labels;
  labels.FillLabels(session.Reported(), "Compare");
  lblPeriod.Caption = labels.RepBegin + " to " + labels.RepEnd + " (" + labels.RepPeriod + ")";
  lstOffers.SetColumns({{"Calls of", 2000},
                        {"By the costs of", 2000},
                        {"Cost", 1300, ColumnAlign::Right},
                        {"Difference a month", 1900, ColumnAlign::Right},
                        {"Remark", 3300}});
  std::vector<ListRow> rows;
  for (const auto& service : services) {
    const std::string name = ServiceNameOf(settings.Services[service.Service]);
    for (const auto& row : TableOf(session.Reported(), service).Rows)
      rows.push_back({name, {row.Name, row.Cost, row.Difference, row.Remark}});
  }
  lstOffers.SetRows(std::move(rows));
  lstOffers.SelectRow(1);
  DrawSelected();
}

const ServiceComparison* frmCompare::Selected() const {
  int row = lstOffers.SelectedRow();
  for (const auto& service : services) {
    const int offers = static_cast<int>(service.Offers.size());
    if (row >= 1 && row <= offers) return &service;
    row -= offers;
  }
  return nullptr;
}

void frmCompare::DrawSelected() {
  constexpr double width = 720;  // about the window's
  const ServiceComparison* selected = Selected();
  if (selected == drawn) return;
  drawn = selected;
  btnCalls.Enabled = selected != nullptr;
  drwOffers.SetDrawings(selected ? std::vector{OffersDrawing(settings, *selected, width)}
                                 : std::vector<Drawing>());
}

// Once the window is closed: where the calls stand in the report, each with its price.
void frmCompare::ShowCalls() {
  SetTrace("frmCompare", "ShowCalls");
  if (drawn == nullptr) return;
  wanted = drawn->Connection;
  Unload();
}

}  // namespace qel
