#include "ui/frmTariff.h"

#include <algorithm>
#include <initializer_list>

#include "analysis/TariffDays.h"
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "ui/HelpNumbers.h"
#include "ui/QuarterHours.h"
#include "ui/frmService.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

const char PerMinute[] = "Per Minute";
const char PerSecond[] = "Per Second";
const char PerUnit[] = "Per Unit";

// A text that the list does not hold is an error, and the list stays as it is.
void ShowStored(ComboBox& list, const std::string& text) {
  Attempt([&] { list.SetText(text); });
}

void EnableGroup(bool enabled, std::initializer_list<TextBox*> fields, std::initializer_list<Label*> labels) {
  for (TextBox* field : fields) EnableField(*field, enabled);
  for (Label* label : labels) GreyText(*label, !enabled);
}

}  // namespace

frmTariff::frmTariff(Windows& owner) : Window("frmTariff", owner) {
  HelpContextID = HelpTariff;
  ConnectFields();
  ConnectLists();
}

void frmTariff::ConnectFields() {
  for (RuledField* field : {&DialRate, &AfterMins, &AfterSecs, &UnitMins, &UnitSecs})
    field->Changed = field->Left = [this] { CheckOKBtn(); };
  MinuteRate.Changed = MinuteRate.Left = [this] {
    ChargeIntervalRule();
    CheckOKBtn();
  };
  // The defaults of a new tariff are there to be typed over, and nothing else.
  for (TextBox* field :
       {&txtDialTimeTariffDialRate, &txtDialTimeTariffMinuteRate, &txtDialTimeTariffAfterMins,
        &txtDialTimeTariffAfterSecs, &txtDialTimeTariffUnitMins, &txtDialTimeTariffUnitSecs})
    field->SelectsOnTab = false;
  for (TextBox* field : {&txtDialTimeTariffDialRate, &txtDialTimeTariffMinuteRate,
                         &txtDialTimeTariffAfterMins, &txtDialTimeTariffAfterSecs})
    field->GotFocus = [this, field] {
      if (NewTariff) field->Select(0, static_cast<int>(field->Text().size()));
    };
}

void frmTariff::ConnectLists() {
  const auto check = [this] { CheckOKBtn(); };
  lstDialTimeTariffDescrip.SelectsOnTab = false;
  lstDialTimeTariffDescrip.Change = check;
  lstDialTimeTariffDescrip.Click = lstDialTimeTariffDescrip.LostFocus = check;
  lstDialTimeTariffDescrip.GotFocus = [this] { lstDialTimeTariffDescrip.TextSelected = NewTariff; };
  lstDialTimeTariffDialDays.Click = lstDialTimeTariffDialDays.LostFocus = check;

  lstDialTimeTariffDialStart.Click = [this] { lstDialTimeTariffDialStart_Click(); };
  lstDialTimeTariffDialEnd.Click = [this] { lstDialTimeTariffDialEnd_Click(); };
  for (ComboBox* list : {&lstDialTimeTariffDialStart, &lstDialTimeTariffDialEnd}) {
    list->GotFocus = [this, list] { TimeList_GotFocus(*list); };
    list->LostFocus = [this] { TimeList_LostFocus(); };
  }

  lstDialTimeTariffUnit.Click = lstDialTimeTariffUnit.LostFocus = [this] { ChargeIntervalRule(); };
}

void frmTariff::Form_Load() {
  SetTrace("frmTariff", "Form_Load");
  FillComboBoxes();
  if (NewTariff)
    LoadNewTariff();
  else
    LoadTariff();
}

void frmTariff::FillComboBoxes() {
  lstDialTimeTariffDescrip.AddItems({"Standard Tariff", "Economy Tariff", "Peak Period Tariff",
                                     "Holiday Tariff", "Weekday Tariff", "Weekend Tariff"});
  lstDialTimeTariffDialDays.AddItems({"Everyday", "Holidays"});
  enum { Mon, Tue, Wed, Thu, Fri, Sat, Sun };
  const struct {
    std::size_t first, last;
  } ranges[] = {{Sat, Sun}, {Mon, Fri}, {Mon, Thu}, {Fri, Sat}, {Fri, Sun}};
  for (const auto& [first, last] : ranges)
    lstDialTimeTariffDialDays.AddItem(Region.ShortDays[first] + " - " + Region.ShortDays[last]);
  lstDialTimeTariffDialDays.AddItems({Region.LongDays.begin(), Region.LongDays.end()});
  lstDialTimeTariffDialStart.AddItems(QuarterHours());
  lstDialTimeTariffDialEnd.AddItems(QuarterHours(LastMinuteOfQuarter));
  lstDialTimeTariffUnit.AddItems({PerMinute, PerSecond, PerUnit});
}

// The start brings its end along; the fields fill themselves when the window comes to the front.
void frmTariff::LoadNewTariff() {
  lstDialTimeTariffDescrip.SetText("New Tariff");
  lstDialTimeTariffDialDays.SetText("Everyday");
  lstDialTimeTariffDialStart.SetListIndex(0);
  lstDialTimeTariffUnit.SetText(PerMinute);
}

void frmTariff::LoadTariff() {
  TariffNumber = Int16(windows.ServiceForm->lstDialTimeTariff.SelectedRow());
  const TariffRecord& tariff = windows.ServiceForm->TariffCopy[TariffNumber - 1];
  lstDialTimeTariffDescrip.SetText(tariff.Description);
  ShowDays(tariff.AppliesDays);
  ShowStored(lstDialTimeTariffDialStart, QuarterHourText(tariff.AppliesTimeStart));
  ShowStored(lstDialTimeTariffDialEnd, QuarterHourText(tariff.AppliesTimeEnd));
  ShowStored(lstDialTimeTariffUnit, tariff.Unit);
  if (lstDialTimeTariffUnit.Text().empty()) lstDialTimeTariffUnit.SetText(PerMinute);
  txtDialTimeTariffDialRate.Text = MoneyField(tariff.DialRate);
  txtDialTimeTariffMinuteRate.Text = MoneyField(tariff.PerMinuteRate);
  txtDialTimeTariffAfterMins.Text = NumberText(tariff.After / 60);
  txtDialTimeTariffAfterSecs.Text = NumberText(tariff.After % 60);
  txtDialTimeTariffUnitMins.Text = NumberText(tariff.UnitMins > 0 ? int{tariff.UnitMins} : 15);
  txtDialTimeTariffUnitSecs.Text = NumberText(tariff.UnitSecs);
}

// Days that were written in English stand among those of the user's language: a range as its own, a single
// day as it is written, since its reach may be another one.
void frmTariff::ShowDays(const std::string& stored) {
  storedDays = stored;
  const std::string days = DaysInUsersWords(stored);
  const auto& offered = lstDialTimeTariffDialDays.Items();
  const bool single = days.find(" - ") == std::string::npos && AreKnownDays(days);
  if (single && std::find(offered.begin(), offered.end(), days) == offered.end())
    lstDialTimeTariffDialDays.AddItem(days);
  ShowStored(lstDialTimeTariffDialDays, days);
}

// What was not changed keeps the words in which it was stored.
std::string frmTariff::EnteredDays() const {
  const std::string& days = lstDialTimeTariffDialDays.Text();
  return days == DaysInUsersWords(storedDays) ? storedDays : days;
}

// Every field is left once, so that it takes its form and knows whether it is valid.
void frmTariff::Form_Activate() {
  for (RuledField* field : {&AfterMins, &AfterSecs, &DialRate, &MinuteRate, &UnitMins, &UnitSecs})
    field->Leave();
  lblAssist.Visible = false;
  lstDialTimeTariffDescrip.SetFocus();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

// Closing the window in any other way than by OK is cancelling.
bool frmTariff::Form_Unload() {
  if (!Confirmed) NewTariff = false;
  return true;
}

// A segment lasts a quarter of an hour at least: a time that would make it shorter moves the other one. An
// entry of the list of ends is the last minute of the quarter that begins with the same entry of the other.
void frmTariff::lstDialTimeTariffDialStart_Click() {
  ComboBox &start = lstDialTimeTariffDialStart, &end = lstDialTimeTariffDialEnd;
  Assist(start);
  if (start.Text() > end.Text()) end.SetListIndex(start.ListIndex());
  CheckOKBtn();
  if (Visible()) start.SetFocus();
}

void frmTariff::lstDialTimeTariffDialEnd_Click() {
  ComboBox &start = lstDialTimeTariffDialStart, &end = lstDialTimeTariffDialEnd;
  Assist(end);
  if (end.Text() < start.Text()) start.SetListIndex(end.ListIndex());
  CheckOKBtn();
  if (Visible()) end.SetFocus();
}

void frmTariff::TimeList_GotFocus(ComboBox& list) {
  if (&list == &lstDialTimeTariffDialStart && list.Text().empty()) list.SetListIndex(0);
  Assist(list);
  lblAssist.Enabled = lblAssist.Visible = true;
}

void frmTariff::TimeList_LostFocus() {
  lblAssist.Enabled = lblAssist.Visible = false;
  CheckOKBtn();
}

// Spells the time out in 12 hours, since the lists are in 24.
void frmTariff::Assist(const ComboBox& list) {
  lblAssist.Caption = list.Text().empty() ? "" : FormatDate(TimeIn(list), "Medium Time");
}

// By the entry, not by its text: no regional separator can come between.
Date frmTariff::TimeIn(const ComboBox& list) const {
  return QuarterHour(list.ListIndex(), &list == &lstDialTimeTariffDialEnd ? LastMinuteOfQuarter : 0);
}

// Without a rate there is nothing to spare and no unit; only a rate by the unit has a unit, only the others
// spare the beginning of a call.
void frmTariff::ChargeIntervalRule() {
  const std::string& unit = lstDialTimeTariffUnit.Text();
  const bool hasRate = XVal(txtDialTimeTariffMinuteRate.Text) != 0;
  const bool hasThreshold = hasRate && (unit == PerMinute || unit == PerSecond);
  if (!hasThreshold) txtDialTimeTariffAfterMins.Text = txtDialTimeTariffAfterSecs.Text = "0";
  EnableGroup(hasThreshold, {&txtDialTimeTariffAfterMins, &txtDialTimeTariffAfterSecs},
              {&lblDialTimeTariff4, &lblDialTimeTariff5, &lblDialTimeTariff6});
  EnableGroup(hasRate && !hasThreshold, {&txtDialTimeTariffUnitMins, &txtDialTimeTariffUnitSecs},
              {&lblDialTimeTariff9, &lblDialTimeTariff11, &lblDialTimeTariff12});
}

void frmTariff::CheckOKBtn() {
  lblOKNotice.Caption = Missing();
  btnOK.Enabled = lblOKNotice.Caption().empty();
}

// The first reason why the tariff cannot be confirmed; empty when it can. A rate by the second asks for a
// valid unit, as one by the unit does.
std::string frmTariff::Missing() const {
  const bool byMinute = lstDialTimeTariffUnit.Text() == PerMinute;
  const double charges = XVal(txtDialTimeTariffDialRate.Text) + XVal(txtDialTimeTariffMinuteRate.Text);
  const struct {
    bool holds;
    const char* otherwise;
  } demands[] = {
      {!lstDialTimeTariffDescrip.Text().empty(), "Give the tariff a description."},
      {!lstDialTimeTariffDialDays.Text().empty(), "Choose the days on which the tariff applies."},
      {!lstDialTimeTariffDialStart.Text().empty(), "Choose when the tariff starts."},
      {!lstDialTimeTariffDialEnd.Text().empty(), "Choose when the tariff ends."},
      {!lstDialTimeTariffUnit.Text().empty(), "Choose a charge interval."},
      {DialRate.Valid(), "Enter the cost per call as an amount."},
      {MinuteRate.Valid(), "Enter the rate as an amount."},
      {!byMinute || AfterMins.Valid(), "Let the rate start after 0 to 999 minutes."},
      {!byMinute || AfterSecs.Valid(), "Let the rate start after 0 to 60 seconds."},
      {byMinute || UnitMins.Valid(), "Give a unit 1 to 999 minutes."},
      {byMinute || UnitSecs.Valid(), "Give a unit 0 to 60 seconds."},
      {charges > 0, "Give the tariff a cost per call or a rate."},
      {TimeIn(lstDialTimeTariffDialStart) <= TimeIn(lstDialTimeTariffDialEnd),
       "Let the tariff end after its start."},
  };
  for (const auto& demand : demands)
    if (!demand.holds) return demand.otherwise;
  return "";
}

// The number of the first of `count` tariffs that bears the name, 0 where none does. Raises 9 beyond the
// tenth.
Int16 frmTariff::TariffExists(const std::string& name, Int16 count) const {
  for (Int16 number = 1; number <= count; ++number)
    if (windows.ServiceForm->TariffCopy[number - 1].Description == name) return number;
  return 0;
}

// Raises 6 (overflow) where a field that counts for nothing holds a number that no record can.
TariffRecord frmTariff::EnteredTariff() const {
  TariffRecord tariff;
  tariff.Description = lstDialTimeTariffDescrip.Text();
  tariff.AppliesDays = EnteredDays();
  tariff.AppliesTimeStart = TimeIn(lstDialTimeTariffDialStart);
  tariff.AppliesTimeEnd = TimeIn(lstDialTimeTariffDialEnd);
  tariff.DialRate = TextToNumber(txtDialTimeTariffDialRate.Text());
  tariff.PerMinuteRate = TextToNumber(txtDialTimeTariffMinuteRate.Text());
  tariff.Unit = lstDialTimeTariffUnit.Text();
  tariff.After = Int32(Val(txtDialTimeTariffAfterMins.Text()) * 60);
  tariff.After = Int32(tariff.After + Val(txtDialTimeTariffAfterSecs.Text()));
  tariff.UnitMins = Int16(Val(txtDialTimeTariffUnitMins.Text()));
  tariff.UnitSecs = Int16(Val(txtDialTimeTariffUnitSecs.Text()));
  return tariff;
}

void frmTariff::WriteTariff() {
  const Int16 number = NewTariff ? windows.ServiceForm->TariffCopyCount + 1 : TariffNumber;
  windows.ServiceForm->TariffCopy[number - 1] = EnteredTariff();
  if (NewTariff) windows.ServiceForm->TariffCopyCount = number;
}

void frmTariff::btnOK_Click() {
  SetTrace("frmTariff", "btnOK_Click");
  if (NewTariff && TariffExists(lstDialTimeTariffDescrip.Text(), windows.ServiceForm->TariffCopyCount) > 0) {
    MsgBox({"A Tariff With This Name Already Exists!", "WARNING", Icon::Exclamation});
    return lstDialTimeTariffDescrip.SetFocus();
  }
  Confirmed = Attempt([this] { WriteTariff(); });
  if (Confirmed) Unload();
}

}  // namespace qel
