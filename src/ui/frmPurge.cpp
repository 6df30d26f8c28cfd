#include "ui/frmPurge.h"

#include "core/ShownDates.h"
#include "core/Surroundings.h"
#include "maintenance/Purge.h"
#include "platform/TextToDate.h"
#include "ui/DateField.h"
#include "ui/HelpNumbers.h"
#include "values/DateText.h"

namespace qel {

frmPurge::frmPurge(Windows& owner) : Window("frmPurge", owner) {
  HelpContextID = HelpPurge;
  for (std::size_t i = 0; i < optPurge.size(); ++i)
    optPurge[i].Click = [this, i] { optPurge_Click(static_cast<int>(i) + 1); };
  for (Field& field : fields) field.Input.Change = [this, &field] { Field_Change(field); };
}

void frmPurge::Form_Load() {
  SetTrace("frmPurge", "Form_Load");
  for (Field& field : fields) MakeDateField(field.Input);
  optPurge[0].Value = true;
}

// The ends that the option fixes are valid at once; the others are what its fields say.
void frmPurge::optPurge_Click(int option) {
  SetTrace("frmPurge", "optPurge_Click");
  ChosenOption = Int16(option);
  for (std::size_t i = 0; i < FraPurge.size(); ++i) FraPurge[i].Enabled = static_cast<int>(i) + 1 == option;
  if (option == 1) {
    PurgeFrom = findings.FirstEntryDate;
    FromValid = true;
  }
  if (option == 3) {
    PurgeTo = findings.LastEntryDate;
    ToValid = true;
  }
  for (Field& field : fields) {
    field.Input.Enabled = field.Option == option;
    if (field.Option == option) ReadField(field);
  }
  CheckOK();
  const std::array<MaskedEdit*, 3> first = {&MaskEdBox1, &MaskEdBox2[0], &MaskEdBox3};
  first[static_cast<std::size_t>(option - 1)]->SetFocus();
}

void frmPurge::Field_Change(Field& field) {
  ReadField(field);
  CheckOK();
}

void frmPurge::ReadField(Field& field) {
  bool& valid = field.Which == End::From ? FromValid : ToValid;
  valid = IsDate(field.Input.Text());
  if (!valid) return;
  const Date date = adjustDate(WholeDay(TextToDate(field.Input.Text())), field.Which);
  (field.Which == End::From ? PurgeFrom : PurgeTo) = date;
  field.Input.Text = format_date(date);
}

Date frmPurge::adjustDate(Date date, End which) {
  const auto raise = [&] {
    if (date >= findings.FirstEntryDate) return;
    date = findings.FirstEntryDate;
    CurrentHost().Beep();
  };
  const auto lower = [&] {
    if (date <= findings.LastEntryDate) return;
    date = findings.LastEntryDate;
    CurrentHost().Beep();
  };
  if (which == End::From) {
    raise();
    lower();
  } else {
    lower();
    raise();
  }
  return date;
}

void frmPurge::CheckOK() { btnOK.Enabled = FromValid && ToValid && PurgeFrom <= PurgeTo; }

bool frmPurge::ProceedWithPurge() const {
  const Message question{"About to purge all entries in Modem\nLog File between " + DateText(PurgeFrom) +
                             " and " + DateText(PurgeTo) + ".\n\nAre You Sure?",
                         "PURGE ENTRIES", Icon::Question, Buttons::YesNo};
  return MsgBox(question) == Answer::Yes;
}

void frmPurge::btnOK_Click() {
  SetTrace("frmPurge", "btnOK_Click");
  Hide();
  if (ProceedWithPurge()) {
    DoPurge(session.InHand(), PurgeFrom, PurgeTo);
    LogChanged = true;
  }
  Unload();
}

}  // namespace qel
