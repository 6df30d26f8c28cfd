// Between the service editor and the record of a service.
#include <algorithm>

#include "core/ErrorHandler.h"
#include "ui/QuarterHours.h"
#include "ui/TariffList.h"
#include "ui/frmService.h"
#include "values/NumberConversion.h"
#include "values/NumberFormat.h"

namespace qel {

namespace {

constexpr char Grouped[] = "#,##0";

// A record may hold the number of an option that does not exist; none is shown then.
template <std::size_t N>
void Choose(std::array<OptionButton, N>& options, int index) {
  if (index >= 0 && index < static_cast<int>(N)) options[static_cast<std::size_t>(index)].Value = true;
}

// A text that the list does not hold goes to the error handler.
void ShowIn(ComboBox& list, const std::string& text) {
  Attempt([&] { list.SetText(text); });
}

}  // namespace

void frmService::LoadNewService() {
  ServiceIndex = Edited->UsedServices;
  TariffCopyCount = 1;
  TariffCopy[0] = DefaultTariff(Edited->DialCost);
  txtDescription.Text = "New Service";
  Choose(optDialCost, 0);
  txtDialFixedTariff.Text = MoneyField(Edited->DialCost);
  Choose(optServiceCost, 0);
  txtServiceFixedRate.Text = MoneyField(Edited->CostPerHour);
  for (TextBox* field :
       {&txtServiceFlexRate, &txtServiceFlexRate2, &txtPerMeg, &txtWarndialupCost, &txtWarnServiceCost})
    field->Text = MoneyField(0.0);
  for (TextBox* field : {&txtServiceFlexHours, &txtAfterMeg, &txtServiceBlock, &txtMaxCharge,
                         &txtWarningHours, &txtWarningMinutes, &txtWarnData})
    field->Text = "0";
  lstServiceFlexPeriod.SetText("Month");
  lstMegPeriod.SetText("Month");
  Choose(optWarning, 0);
  txtDescription.Select(0, static_cast<int>(txtDescription.Text().size()));
}

void frmService::CopyTariffs(const ServiceRecord& service) {
  for (TariffCopyCount = 0; TariffCopyCount < service.UsedTariffs; ++TariffCopyCount) {
    TariffRecord& copy = TariffCopy[TariffCopyCount];
    copy = service.Tariffs[TariffCopyCount];
    if (copy.Unit.empty()) copy.Unit = "Per Minute";
  }
}

void frmService::ShowService(const ServiceRecord& service) {
  CopyTariffs(service);
  SelectedTariff = 1;
  txtDescription.Text = service.ServiceName;
  txtNumber.Text = service.ServiceNumber;
  txtAltNumber.Text = service.ServiceAltNumber;
  ShowCosts(service);
  ShowWarning(service);
}

void frmService::ShowCosts(const ServiceRecord& service) {
  DialOption = Int16(std::max<int>(service.DialOption, 1));
  Choose(optDialCost, DialOption - 1);
  ServiceOption = Int16(std::max<int>(service.ServiceOption, 1));
  Choose(optServiceCost, ServiceOption - 1);
  txtDialFixedTariff.Text = MoneyField(service.DialFixedTariff);
  txtServiceFixedRate.Text = MoneyField(service.ServiceRate);
  txtServiceFlexRate.Text = MoneyField(service.FlexRate);
  txtServiceFlexHours.Text = NumberText(service.UpToHours);
  if (!service.PenaltyPeriod.empty()) ShowIn(lstServiceFlexPeriod, service.PenaltyPeriod);
  txtServiceFlexRate2.Text = MoneyField(service.FlexRate2);
  txtPerMeg.Text = MoneyField(service.PerMeg);
  txtAfterMeg.Text = FormatNumber(service.AfterMeg, Grouped);
  ShowIn(lstMegPeriod, service.MegPeriod.empty() ? "Month" : service.MegPeriod);
  txtServiceBlock.Text = NumberText(service.Block);
  chkFreePeriod.Value = service.FreePeriod;
  ShowIn(lstFreePeriodStart, QuarterHourText(service.FreeStart));
  ShowIn(lstFreePeriodEnd, QuarterHourText(service.FreeEnd));
  txtMaxCharge.Text = MoneyField(service.MaxCharge);
}

void frmService::ShowWarning(const ServiceRecord& service) {
  txtWarningHours.Text = NumberText(service.WarningHours);
  txtWarningMinutes.Text = NumberText(service.WarningMinutes);
  txtWarndialupCost.Text = MoneyField(service.WarningDialup);
  txtWarnServiceCost.Text = MoneyField(service.WarningService);
  txtWarnData.Text = FormatNumber(service.WarningData, Grouped);
  chkWarnDisplay.Value = service.WarningDisplay;
  chkWarnSound.Value = service.WarningSound;
  WarningOption = service.WarningOption;
  Choose(optWarning, WarningOption);
  chkWarnings.Value = service.ShowWarnings;
}

// A number beyond its field goes to the error handler; where the user goes on, the field stays as it was.
void frmService::WriteService(ServiceRecord& service) const {
  service.ServiceName = txtDescription.Text;
  service.ServiceNumber = txtNumber.Text;
  service.ServiceAltNumber = txtAltNumber.Text;
  service.DialOption = DialOption;
  service.DialFixedTariff = TextToNumber(txtDialFixedTariff.Text());
  service.UsedTariffs = TariffCopyCount;
  for (int i = 0; i < TariffCopyCount; ++i) service.Tariffs[i] = TariffCopy[i];
  WriteServiceCost(service);
  WriteWarning(service);
}

// Both ends of the free time are kept while it is switched off. They are taken by their entries, not by their
// texts: no regional separator can come between.
void frmService::WriteServiceCost(ServiceRecord& service) const {
  service.Block = Int16(Val(txtServiceBlock.Text()));
  service.MaxCharge = XVal(txtMaxCharge.Text);
  service.FreePeriod = chkFreePeriod.Value;
  service.FreeStart = QuarterHour(lstFreePeriodStart.ListIndex());
  service.FreeEnd = QuarterHour(lstFreePeriodEnd.ListIndex());
  service.PerMeg = XVal(txtPerMeg.Text);
  service.AfterMeg = Val(txtAfterMeg.Text());
  service.MegPeriod = lstMegPeriod.Text();
  service.ServiceOption = ServiceOption;
  service.ServiceRate = XVal(txtServiceFixedRate.Text);
  service.FlexRate = XVal(txtServiceFlexRate.Text);
  service.UpToHours = Int16(Val(txtServiceFlexHours.Text()));
  service.PenaltyPeriod = lstServiceFlexPeriod.Text();
  service.FlexRate2 = XVal(txtServiceFlexRate2.Text);
}

void frmService::WriteWarning(ServiceRecord& service) const {
  service.ShowWarnings = chkWarnings.Value;
  service.WarningOption = WarningOption;
  Attempt([&] { service.WarningHours = Int16(Val(txtWarningHours.Text())); });
  Attempt([&] { service.WarningMinutes = Int16(Val(txtWarningMinutes.Text())); });
  service.WarningDialup = XVal(txtWarndialupCost.Text);
  service.WarningService = XVal(txtWarnServiceCost.Text);
  Attempt([&] { service.WarningData = Int32(XVal(txtWarnData.Text)); });
  service.WarningDisplay = chkWarnDisplay.Value;
  service.WarningSound = chkWarnSound.Value;
}

}  // namespace qel
