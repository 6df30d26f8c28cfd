// The tariffs of the service editor: their list, and the buttons that change it.
#include <algorithm>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "platform/Clock.h"
#include "ui/TariffList.h"
#include "ui/WeekAtAGlance.h"
#include "ui/frmService.h"
#include "ui/frmTariff.h"
#include "values/CodePage.h"
#include "values/Region.h"

namespace qel {

void frmService::WireTariffs() {
  lstDialTimeTariff.ItemClick = [this] {
    SelectedTariff = Int16(lstDialTimeTariff.SelectedRow());
    ShowTariffSummary();
  };
  lstDialTimeTariff.DblClick = [this] { btnDialTimeTariffEdit_Click(); };
}

void frmService::SetTariffColumns() {
  lstDialTimeTariff.FullRowSelect = true;
  txtDialTimeTariffNotes.Locked = true;
  lstDialTimeTariff.HideSelection = false;  // the buttons below it work on that row
  lstDialTimeTariff.SetColumns({{"Description", 1900},
                                {"Days", 1080},
                                {"Hours", 1900},
                                {Region.CurrencySymbol + "/Call", 860},
                                {Region.CurrencySymbol + "/M/S/U", 900},
                                {"After (Unit Size)", 1550}});
}

void frmService::SortTariffs() {
  SetTrace("frmService", "SortTariffs");
  OrderTariffs(TariffCopy, TariffCopyCount, SelectedTariff);
}

void frmService::DisplayTariffs() {
  SetTrace("frmService", "DisplayTariffs");
  std::vector<ListRow> rows;
  for (int i = 0; i < TariffCopyCount; ++i) {
    ListRow row;
    Attempt([&] { row = TariffRow(TariffCopy[i]); });
    row.Mark = i + 1;
    rows.push_back(row);
  }
  lstDialTimeTariff.SetRows(rows);
  if (lstDialTimeTariff.Usable() && SelectedTariff <= TariffCopyCount)
    lstDialTimeTariff.SelectRow(SelectedTariff);
  ShowWeek();
}

// Damaged tariffs, of which no week can be made, show none.
void frmService::ShowWeek() {
  ServiceRecord service;
  service.ServiceName = txtDescription.Text;
  service.DialOption = 2;
  service.UsedTariffs = TariffCopyCount;
  Timetable::Content week;
  std::string notes;
  IgnoreErrors([&] {
    for (int i = 0; i < TariffCopyCount; ++i) service.Tariffs[i] = TariffCopy[i];
    week = TimetableOf(WeekOf(*Edited, service, Today()), service);
    for (const Finding& finding : CheckTariffs(*Edited, service, Today()))
      notes += (notes.empty() ? "" : NewLine) + finding.Text;
    if (notes.empty()) notes = "Every minute of the week has its tariff, and every tariff its minutes.";
  });
  weekDialTimeTariff.Shows = week;
  txtDialTimeTariffNotes.Text = notes;
}

void frmService::ShowTariffCount() {
  lblDialTimeTariff9.Caption =
      std::to_string(TariffCopyCount) + " Tariffs (Max " + std::to_string(MaxTariffs) + ")";
  if (TariffCopyCount >= MaxTariffs) CurrentHost().Beep();
  ColourTariffCount();
}

void frmService::ColourTariffCount() {
  lblDialTimeTariff9.ForeColor =
      TariffCopyCount < MaxTariffs ? SystemColour::WindowText : SystemColour::Warning;
}

void frmService::ShowTariffSummary() {
  std::string summary = "User Defined Tariffs";
  if (SelectedTariff > 0 && SelectedTariff <= TariffCopyCount)
    Attempt([&] { summary = TariffSummary(TariffCopy[SelectedTariff - 1]); });
  lstDialTimeTariff.ToolTipText = summary;
}

void frmService::SetTariffButtons() {
  btnDialTimeTariffNew.Enabled = TariffCopyCount < MaxTariffs;
  btnDialTimeTariffEdit.Enabled = TariffCopyCount > 0;
  if (DialOption == 2) btnDialTimeTariffDelete.Enabled = TariffCopyCount > 0;
}

// True when a new tariff was confirmed.
bool frmService::EditTariff(bool isNew) {
  frmTariff& editor = *windows.TariffForm;
  editor.NewTariff = isNew;
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  editor.ShowModal();
  return editor.NewTariff;
}

void frmService::btnDialTimeTariffNew_Click() {
  if (TariffCopyCount < MaxTariffs) {
    if (EditTariff(true)) SelectedTariff = TariffCopyCount;
  } else {
    CurrentHost().Beep();
  }
  SortTariffs();
  DisplayTariffs();
  ShowTariffCount();
  SetTariffButtons();
  RefreshOKButton();
  ShowTariffSummary();
  lstDialTimeTariff.SetFocus();
}

void frmService::btnDialTimeTariffEdit_Click() {
  if (!btnDialTimeTariffEdit.Enabled || lstDialTimeTariff.SelectedRow() == 0) return;
  SelectedTariff = Int16(lstDialTimeTariff.SelectedRow());
  EditTariff(false);
  SortTariffs();
  DisplayTariffs();
  ShowTariffSummary();
}

void frmService::btnDialTimeTariffDelete_Click() {
  if (TariffCopyCount == 0 || SelectedTariff == 0) return;
  for (int row = SelectedTariff; row < TariffCopyCount; ++row) TariffCopy[row - 1] = TariffCopy[row];
  --TariffCopyCount;
  SelectedTariff = std::min(SelectedTariff, TariffCopyCount);
  DisplayTariffs();
  ShowTariffCount();
  ShowTariffSummary();
  SetTariffButtons();
  RefreshOKButton();
  lstDialTimeTariff.SetFocus();
}

}  // namespace qel
