// The service editor's fields: what each of them takes, and what must be there before the service can be
// confirmed.
#include <algorithm>
#include <cmath>

#include "modemlog/DialledNumber.h"
#include "ui/frmService.h"
#include "values/NumberConversion.h"
#include "values/Region.h"

namespace qel {

namespace {

constexpr int MostHours = 999;   // of a flexible rate's threshold
constexpr int MostMinutes = 99;  // of a block

std::string HoursAsTyped(const std::string& text) {
  if (!IsNumber(text)) return "";
  return Val(text) > MostHours ? NumberText(MostHours) : text;
}

std::string BlockAsTyped(const std::string& text) {
  return Val(text) > MostMinutes ? NumberText(Val(text.substr(0, 2))) : text;
}

// When the OK button is looked at again.
enum class Refresh { OnChange, OnLeaving, OnBoth };

}  // namespace

void frmService::WireFields() {
  // An amount that is looked at when its field is left, and one that is looked at while it is typed.
  const FieldRule lateAmount{.TestsTyping = false, .WhenLeft = Leaving::Insists, .Filler = ""};
  const FieldRule amount{.Unfinished = &Region.NumberDecimal, .WhenLeft = Leaving::Resets};
  const struct {
    TextBox& Field;
    FieldRule Rule;
    Refresh When = Refresh::OnChange;
  } rows[] = {
      {txtDialFixedTariff, lateAmount, Refresh::OnLeaving},
      {txtServiceFixedRate, lateAmount},
      {txtPerMeg, lateAmount},
      {txtServiceFlexRate, amount},
      {txtServiceFlexRate2, amount},
      {txtMaxCharge, amount},
      {txtWarndialupCost, amount, Refresh::OnBoth},
      {txtWarnServiceCost, amount, Refresh::OnBoth},
      {txtServiceFlexHours,
       {.Most = MostHours, .WhenEmptied = Emptied::IsRefused, .Shortened = HoursAsTyped, .Mask = "#0"}},
      {txtAfterMeg,
       {.Most = 999, .WhenEmptied = Emptied::IsRefused, .WhenLeft = Leaving::Insists, .Mask = "#0"}},
      {txtServiceBlock,
       {.Most = MostMinutes,
        .TestsTyping = false,
        .Shortened = BlockAsTyped,
        .WhenLeft = Leaving::Insists,
        .Mask = "#0",
        .WholePart = true}},
      {txtWarningHours, {.WhenEmptied = Emptied::IsRefused, .Mask = "###0"}},
      {txtWarningMinutes, {.Most = 59, .WhenEmptied = Emptied::IsRefused, .Mask = "#0"}},
      {txtWarnData, {.WhenEmptied = Emptied::IsRefused, .WhenLeft = Leaving::Insists, .Mask = "#,##0"}},
  };
  const auto refresh = [this] { RefreshOKButton(); };
  for (const auto& row : rows) {
    RuledField& ruled = ruledFields.emplace_back(row.Field, row.Rule);
    if (row.When != Refresh::OnLeaving) ruled.Changed = refresh;
    if (row.When != Refresh::OnChange) ruled.Left = refresh;
  }
  txtDescription.Change = refresh;
  for (TextBox* field : {&txtNumber, &txtAltNumber}) {
    field->Change = [this, field] {
      field->Refusal = "";
      RefreshOKButton();
    };
    field->LostFocus = [field] {
      if (!IsValidNumber(field->Text)) RefuseAndStay(*field, "Digits, P, L, T, W and , ! ^ ( ) # * - only.");
    };
  }
  for (ComboBox* list : {&lstServiceFlexPeriod, &lstMegPeriod}) list->Click = list->LostFocus = refresh;
}

// Of a field that takes numbers: whether it took its last text.
bool frmService::Passed(const TextBox& field) const {
  return std::ranges::find_if(ruledFields, [&](const RuledField& ruled) { return &ruled.Field() == &field; })
      ->Valid();
}

void frmService::RefreshOKButton() {
  const std::string missing = Missing();
  lblOKNotice.Caption = missing;
  btnOK.Enabled = missing.empty();
  Caption = "Q E L - Edit Service (" + txtDescription.Text() + ")";
}

std::string frmService::Missing() const {
  using Part = std::string (frmService::*)() const;
  for (const Part part :
       {&frmService::MissingDetails, &frmService::MissingDialCost, &frmService::MissingServiceCost,
        &frmService::MissingLimits, &frmService::MissingWarning})
    if (const std::string missing = (this->*part)(); !missing.empty()) return missing;
  return "";
}

// Two services may have the same number.
std::string frmService::MissingDetails() const {
  if (txtDescription.Text().empty()) return "Enter a description.";
  if (txtNumber.Text().empty()) return "Enter the dialled number.";
  if (!IsValidNumber(txtNumber.Text)) return "The dialled number holds a character that cannot be dialled.";
  if (!IsValidNumber(txtAltNumber.Text))
    return "The alternate number holds a character that cannot be dialled.";
  return "";
}

// Whether the tariffs cover the week is not asked: a call that no tariff covers brings its own message.
std::string frmService::MissingDialCost() const {
  if (DialOption == 1 && !IsNumber(txtDialFixedTariff.Text())) return "Enter the cost of a call.";
  if (DialOption == 2 && TariffCopyCount == 0) return "Define a tariff.";
  return "";
}

std::string frmService::MissingServiceCost() const {
  if (ServiceOption == 1 && !IsNumber(txtServiceFixedRate.Text())) return "Enter the cost of an hour.";
  if (ServiceOption != 2) return "";
  if (!IsNumber(txtServiceFlexRate.Text())) return "Enter the cost of an hour.";
  if (!IsNumber(txtServiceFlexHours.Text())) return "Enter the hours at the first rate.";
  if (!IsNumber(txtServiceFlexRate2.Text())) return "Enter the cost of an hour in excess.";
  if (lstServiceFlexPeriod.Text().empty()) return "Choose the period of the flexible rate.";
  if (!(XVal(txtServiceFlexRate.Text) + XVal(txtServiceFlexRate2.Text) > 0))
    return "One of the two hourly rates must be above 0.";
  return "";
}

std::string frmService::MissingLimits() const {
  if (!IsNumber(txtPerMeg.Text())) return "Enter the cost of a megabyte.";
  if (!IsNumber(txtAfterMeg.Text())) return "Enter the megabytes that are free.";
  if (XVal(txtPerMeg.Text) > 0 && lstMegPeriod.Text().empty()) return "Choose the period of the megabytes.";
  // Whole to two decimals.
  const double hundredths = RoundHalfEven(XVal(txtServiceBlock.Text) * 100);
  if (!IsNumber(txtServiceBlock.Text()) || std::fmod(hundredths, 100) != 0)
    return "The block size must be whole minutes.";
  if (!IsNumber(txtMaxCharge.Text())) return "Enter the maximum charge of a session.";
  return "";
}

}  // namespace qel
