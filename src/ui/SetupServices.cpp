// The options window's list of services.
#include <algorithm>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "ui/ServiceScan.h"
#include "ui/frmService.h"
#include "ui/frmSetup.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr int TelephoneIcon = 3;
constexpr char NoService[] = "No service is selected.";
constexpr char NoRoom[] = "There is room for no more services.";

constexpr int MostNamed = 3;

// The first few names, and how many there are beyond them.
std::string FreeServices(const Settings& settings) {
  std::string names;
  int count = 0;
  for (int i = 0; i < settings.UsedServices; ++i) {
    if (!CostsNothing(settings.Services[i])) continue;
    if (++count <= MostNamed) names += (names.empty() ? "" : ", ") + settings.Services[i].ServiceName;
  }
  return count > MostNamed ? names + " and " + NumberText(count - MostNamed) + " more" : names;
}

ListRow RowOf(const ServiceRecord& service) {
  return {service.ServiceName + "  ", {service.ServiceNumber}, TelephoneIcon};
}

// A new service needs a record of its own before it can be edited.
bool HasRecord(const Settings& settings, int service) {
  return Attempt([&] { static_cast<void>(settings.Services[service]); });
}

void TellScanned(int found) {
  const std::string text = found == 0 ? "No new dialled services found in modem log!"
                                      : NumberText(found) +
                                            " new dialled service(s) found in modem log!\n"
                                            "\n"
                                            "Please review these new service(s) by\n"
                                            "selecting and then clicking the 'Edit' button.";
  MsgBox({text, "Scan for Dialled Services", Icon::Information});
}

}  // namespace

void frmSetup::WireServices() {
  lstServices.SetColumns({{"Service Description", 4000}, {"Number", 1900}});
  lstServices.FullRowSelect = true;
  lstServices.HideSelection = false;  // the buttons beside it, which take the focus, work on that row
  lstServices.ItemClick = [this] { lstServices_ItemClick(); };
  lstServices.DblClick = btnEdit.Click = [this] { lstServices_DblClick(); };
  btnNew.Click = [this] { btnNew_Click(); };
  btnDelete.Click = [this] { btnDelete_Click(); };
  btnCopy.Click = [this] { btnCopy_Click(); };
  btnScan.Click = [this] { btnScan_Click(); };
  ProgressBar1.Visible = false;
}

void frmSetup::ShowServices() {
  SetTrace("frmSetup", "ShowServices");
  for (int i = 0; i < settings.UsedServices; ++i) lstServices.AddRow(RowOf(settings.Services[i]));
  if (lstServices.RowCount() > 0) SelectRow(1);
}

void frmSetup::AddServiceRow(int service) {
  lstServices.AddRow(RowOf(settings.Services[service]));
  SelectRow(lstServices.RowCount());
}

void frmSetup::SelectRow(int row) {
  lstServices.SelectRow(row);
  lstServices.Refusal = "";
}

void frmSetup::ShowServiceCount() {
  const bool room = settings.UsedServices < settings.MaxServices;
  lblServices.Caption =
      NumberText(settings.UsedServices) + " Services (Max " + NumberText(settings.MaxServices) + ")";
  lblServices.ForeColor = room ? SystemColour::WindowText : SystemColour::Warning;
  for (Button* button : {&btnNew, &btnCopy, &btnScan}) button->Enabled = room;
  ShowServiceNotice();
}

void frmSetup::ShowServiceNotice() {
  std::string free;
  IgnoreErrors([&] { free = FreeServices(settings); });
  std::string notice = deletionNotice;
  if (!free.empty()) notice += (notice.empty() ? "" : "\n") + ("Without any costs so far: " + free);
  lblServiceNotice.Caption = notice;
  lblServiceNotice.Visible = !notice.empty();
}

void frmSetup::EnableEditing() { btnEdit.Enabled = btnDelete.Enabled = settings.UsedServices != 0; }

// True when the editor was confirmed.
bool frmSetup::EditService(bool isNew) {
  frmService& editor = *windows.ServiceForm;
  editor.NewService = isNew;
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  editor.ShowModal();
  return !editor.ServiceEditCancelled;
}

void frmSetup::btnNew_Click() {
  SetTrace("frmSetup", "btnNew_Click");
  if (settings.UsedServices >= settings.MaxServices) {
    Refuse(lstServices, NoRoom);
  } else if (HasRecord(settings, settings.UsedServices) && EditService(true)) {
    ++settings.UsedServices;
    AddServiceRow(settings.UsedServices - 1);
  }
  ShowServiceCount();
  EnableEditing();
}

void frmSetup::lstServices_DblClick() {
  const int service = SelectedService();
  if (service < 0) return Refuse(lstServices, NoService);
  if (EditService(false)) lstServices.SetRow(service + 1, RowOf(settings.Services[service]));
  ShowServiceNotice();
}

void frmSetup::lstServices_ItemClick() {
  ShowServiceCount();
  CheckCopybtn();
}

void frmSetup::btnDelete_Click() {
  const int service = SelectedService();
  const auto agreed = [&] {
    return MsgBox({"Are you sure you want to delete " + settings.Services[service].ServiceName + "?",
                   "Delete Service", Icon::None, Buttons::YesNo}) == Answer::Yes;
  };
  if (service < 0 || agreed()) DeleteService();
  lstServices.SetFocus();
}

// Names and numbers move up alone: the services behind the deleted one take over the costs and the warning of
// the entry before them.
void frmSetup::DeleteService() {
  const int deleted = SelectedService();
  if (deleted < 0) return Refuse(lstServices, NoService);
  if (deleted + 1 < settings.UsedServices)
    deletionNotice =
        "Each service that stood below " + settings.Services[deleted].ServiceName +
        " now has the costs and the warning of the entry before it. Please check them with Edit.";
  for (int i = deleted; i + 1 < settings.UsedServices; ++i) {
    settings.Services[i].ServiceName = settings.Services[i + 1].ServiceName;
    settings.Services[i].ServiceNumber = settings.Services[i + 1].ServiceNumber;
    settings.Services[i].ServiceAltNumber = settings.Services[i + 1].ServiceAltNumber;
  }
  --settings.UsedServices;
  lstServices.RemoveRow(deleted + 1);
  SelectRow(std::min(deleted + 1, lstServices.RowCount()));
  ShowServiceCount();
  EnableEditing();
}

void frmSetup::btnCopy_Click() {
  const int source = SelectedService();
  if (source < 0) return Refuse(lstServices, NoService);
  CopyService(source);
  ShowServiceCount();
  CheckCopybtn();
}

// The copy has no number yet, and keeps the alternate number and the maximum charge that its place held.
void frmSetup::CopyService(int index) {
  SetTrace("frmSetup", "CopyService");
  Attempt([this, index] {
    ServiceRecord& place = settings.Services[settings.UsedServices];
    ServiceRecord copy = settings.Services[index];
    copy.ServiceName = "Copy Of " + copy.ServiceName;
    copy.ServiceNumber = "";
    copy.ServiceAltNumber = place.ServiceAltNumber;
    copy.MaxCharge = place.MaxCharge;
    place = copy;
    ++settings.UsedServices;
    AddServiceRow(settings.UsedServices - 1);
  });
}

void frmSetup::CheckCopybtn() {
  const int service = SelectedService();
  btnCopy.Enabled = btnCopy.Enabled && service >= 0 && !settings.Services[service].ServiceNumber.empty();
}

void frmSetup::btnScan_Click() {
  if (ProgressBar1.Visible) return;  // a scan is under way
  SetTrace("frmSetup", "btnScan_Click");
  const std::string path = settings.ModemLogDir + settings.ModemLogFile;
  TraceStep(PathText(path));
  ProgressBar1.SetValue(0);
  ProgressBar1.Visible = true;
  fralblServices.Visible = false;
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  int found = 0;
  const auto show = [&] {
    ++found;
    AddServiceRow(settings.UsedServices - 1);
    ShowServiceCount();
    EnableEditing();
  };
  const auto proceed = [this](int percent) {
    ProgressBar1.SetValue(percent);
    CurrentHost().Yield();
    return IsLoaded();  // nobody has closed the window meanwhile
  };
  const bool done = Attempt([&] { ScanForServices(settings, path, show, proceed); });
  CurrentHost().SetMousePointer(MousePointer::Default);
  if (!IsLoaded()) return;
  ProgressBar1.SetValue(100);
  ProgressBar1.Visible = false;
  fralblServices.Visible = Settings[2].Visible();  // the user may have gone to another tab
  if (done || found > 0) TellScanned(found);
  lstServices.SetFocus();
}

}  // namespace qel
