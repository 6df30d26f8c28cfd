#include <algorithm>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "platform/Clock.h"
#include "ui/SetupTabs.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"

namespace qel {

SetupHolidays::SetupHolidays(const SetupTab& tab) : SetupTab(tab) {
  CalHolidays.AfterUpdate = [this] { CalHolidays.Refusal = ""; };
  CalHolidays.DblClick = [this] { AddHoliday(); };
  CalHolidays.KeyDown = [this](KeyPress& press) {
    if (press.key != Key::Enter) return;
    press.Handled = true;
    AddHoliday();
  };
  btnRemove.Click = lstHolidays.DblClick = [this] { btnRemove_Click(); };
  lstHolidays.Click = [this] { lstHolidays_Click(); };
}

void SetupHolidays::Show() {
  SetTrace("frmSetup", "LoadHolidays");
  int past = 0;
  for (int i = 0; i < edited.UsedHolidays; ++i) {
    const Date day = edited.Holidays[i];
    if (day < Today())
      ++past;
    else if (Attempt([day] { FormatDate(day, "Short Date"); }))  // else no list can show it
      holidays.push_back(day);
  }
  ShowPastHolidays(past);
  CalHolidays.Value = Today();
  ShowHolidays(0);
}

// Tariffs for holidays hold on them, so reports on their days change with the saving.
void SetupHolidays::ShowPastHolidays(int past) {
  lblPastHolidays.Visible = past > 0;
  lblPastHolidays.Caption =
      past == 1
          ? "1 holiday that has gone by is not in the list. Save removes it, and reports on its day will "
            "no longer take it for a holiday."
          : NumberText(past) +
                " holidays that have gone by are not in the list. Save removes them, and reports on their "
                "days will no longer take them for holidays.";
}

// Chooses the entry at a place, or else the last one.
void SetupHolidays::ShowHolidays(int chosen) {
  lstHolidays.Clear();
  for (const Date day : holidays) lstHolidays.AddItem(FormatDate(day, "Short Date"));
  lstHolidays.SetListIndex(std::min(chosen, lstHolidays.ListCount() - 1));
  lblUsedHolidays.Caption =
      NumberText(lstHolidays.ListCount()) + " Holidays (Max " + NumberText(MaxHolidays) + ")";
}

void SetupHolidays::AddHoliday() {
  SetTrace("frmSetup", "AddHoliday");
  const Date day = CalHolidays.Value;
  if (day < Today()) return Refuse(CalHolidays, FormatDate(day, "Short Date") + " has gone by.");
  if (const auto same = std::find(holidays.begin(), holidays.end(), day); same != holidays.end()) {
    lstHolidays.SetListIndex(static_cast<int>(same - holidays.begin()));
    return Refuse(CalHolidays, FormatDate(day, "Short Date") + " is in the list already.");
  }
  if (holidays.size() == MaxHolidays) {
    lblUsedHolidays.ForeColor = SystemColour::Warning;
    return Refuse(CalHolidays, "There is room for no more holidays.");
  }
  const bool isLast = holidays.empty() || day > holidays.back();
  const auto place =
      isLast ? holidays.end()
             : std::find_if(holidays.begin(), holidays.end(), [day](Date listed) { return listed >= day; });
  const auto added = holidays.insert(place, day);
  ShowHolidays(static_cast<int>(added - holidays.begin()));
}

void SetupHolidays::btnAdd_Click() {
  AddHoliday();
  CalHolidays.NextDay();
}

void SetupHolidays::btnRemove_Click() {
  SetTrace("frmSetup", "btnRemove_Click");
  const int chosen = lstHolidays.ListIndex();
  if (chosen < 0) return;
  holidays.erase(holidays.begin() + chosen);
  lblUsedHolidays.ForeColor = SystemColour::WindowText;
  ShowHolidays(chosen);
}

void SetupHolidays::lstHolidays_Click() {
  CalHolidays.Value = holidays[static_cast<std::size_t>(lstHolidays.ListIndex())];
  CalHolidays.Refusal = "";
}

void SetupHolidays::Store() const {
  edited.UsedHolidays = Int16(holidays.size());
  for (int i = 0; i < edited.UsedHolidays; ++i) edited.Holidays[i] = holidays[static_cast<std::size_t>(i)];
}

}  // namespace qel
