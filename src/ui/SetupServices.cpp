#include <algorithm>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "ui/ServiceScan.h"
#include "ui/SetupTabs.h"
#include "ui/frmService.h"
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

SetupServices::SetupServices(const SetupTab& tab) : SetupTab(tab) {
  lstServices.SetColumns({{"Service Description", 4000}, {"Number", 1900}});
  lstServices.FullRowSelect = true;
  lstServices.HideSelection = false;  // the buttons beside it, which take the focus, work on that row
  lstServices.ItemClick = [this] { lstServices_ItemClick(); };
  lstServices.DblClick = btnEdit.Click = [this] { lstServices_DblClick(); };
  ProgressBar1.Visible = false;
}

void SetupServices::Show() {
  SetTrace("frmSetup", "ShowServices");
  for (int i = 0; i < edited.UsedServices; ++i) lstServices.AddRow(RowOf(edited.Services[i]));
  if (lstServices.RowCount() > 0) SelectRow(1);
  EnableEditing();
}

void SetupServices::AddServiceRow(int service) {
  lstServices.AddRow(RowOf(edited.Services[service]));
  SelectRow(lstServices.RowCount());
}

void SetupServices::SelectRow(int row) {
  lstServices.SelectRow(row);
  lstServices.Refusal = "";
}

void SetupServices::ShowServiceCount() {
  const bool room = edited.UsedServices < edited.MaxServices;
  lblServices.Caption =
      NumberText(edited.UsedServices) + " Services (Max " + NumberText(edited.MaxServices) + ")";
  lblServices.ForeColor = room ? SystemColour::WindowText : SystemColour::Warning;
  for (Button* button : {&btnNew, &btnCopy, &btnScan}) button->Enabled = room;
  ShowServiceNotice();
}

void SetupServices::ShowServiceNotice() {
  std::string free;
  IgnoreErrors([&] { free = FreeServices(edited); });
  std::string notice = deletionNotice;
  if (!free.empty()) notice += (notice.empty() ? "" : "\n") + ("Without any costs so far: " + free);
  lblServiceNotice.Caption = notice;
  lblServiceNotice.Visible = !notice.empty();
}

void SetupServices::EnableEditing() { btnEdit.Enabled = btnDelete.Enabled = edited.UsedServices != 0; }

// True when the editor was confirmed.
bool SetupServices::EditService(int service, bool isNew) {
  frmService& editor = *windows.ServiceForm;
  editor.Edited = &edited;
  editor.ServiceIndex = Int16(service);
  editor.NewService = isNew;
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  editor.ShowModal();
  return !editor.ServiceEditCancelled;
}

void SetupServices::btnNew_Click() {
  SetTrace("frmSetup", "btnNew_Click");
  if (edited.UsedServices >= edited.MaxServices) {
    Refuse(lstServices, NoRoom);
  } else if (HasRecord(edited, edited.UsedServices) && EditService(edited.UsedServices, true)) {
    ++edited.UsedServices;
    AddServiceRow(edited.UsedServices - 1);
  }
  ShowServiceCount();
  EnableEditing();
}

void SetupServices::lstServices_DblClick() {
  const int service = SelectedService();
  if (service < 0) return Refuse(lstServices, NoService);
  if (EditService(service, false)) lstServices.SetRow(service + 1, RowOf(edited.Services[service]));
  ShowServiceNotice();
}

void SetupServices::lstServices_ItemClick() {
  ShowServiceCount();
  CheckCopybtn();
}

void SetupServices::btnDelete_Click() {
  const int service = SelectedService();
  const auto agreed = [&] {
    return MsgBox({"Are you sure you want to delete " + edited.Services[service].ServiceName + "?",
                   "Delete Service", Icon::None, Buttons::YesNo}) == Answer::Yes;
  };
  if (service < 0 || agreed()) DeleteService();
  lstServices.SetFocus();
}

// Names and numbers move up alone: the services behind the deleted one take over the costs and the warning of
// the entry before them.
void SetupServices::DeleteService() {
  const int deleted = SelectedService();
  if (deleted < 0) return Refuse(lstServices, NoService);
  if (deleted + 1 < edited.UsedServices)
    deletionNotice =
        "Each service that stood below " + edited.Services[deleted].ServiceName +
        " now has the costs and the warning of the entry before it. Please check them with Edit.";
  for (int i = deleted; i + 1 < edited.UsedServices; ++i) {
    edited.Services[i].ServiceName = edited.Services[i + 1].ServiceName;
    edited.Services[i].ServiceNumber = edited.Services[i + 1].ServiceNumber;
    edited.Services[i].ServiceAltNumber = edited.Services[i + 1].ServiceAltNumber;
  }
  --edited.UsedServices;
  lstServices.RemoveRow(deleted + 1);
  SelectRow(std::min(deleted + 1, lstServices.RowCount()));
  ShowServiceCount();
  EnableEditing();
}

void SetupServices::btnCopy_Click() {
  const int source = SelectedService();
  if (source < 0) return Refuse(lstServices, NoService);
  CopyService(source);
  ShowServiceCount();
  CheckCopybtn();
}

// The copy has no number yet, and keeps the alternate number and the maximum charge that its place held.
void SetupServices::CopyService(int index) {
  SetTrace("frmSetup", "CopyService");
  Attempt([this, index] {
    ServiceRecord& place = edited.Services[edited.UsedServices];
    ServiceRecord copy = edited.Services[index];
    copy.ServiceName = "Copy Of " + copy.ServiceName;
    copy.ServiceNumber = "";
    copy.ServiceAltNumber = place.ServiceAltNumber;
    copy.MaxCharge = place.MaxCharge;
    place = copy;
    ++edited.UsedServices;
    AddServiceRow(edited.UsedServices - 1);
  });
}

void SetupServices::CheckCopybtn() {
  const int service = SelectedService();
  btnCopy.Enabled = btnCopy.Enabled && service >= 0 && !edited.Services[service].ServiceNumber.empty();
}

void SetupServices::btnScan_Click() {
  if (ProgressBar1.Visible) return;  // a scan is under way
  SetTrace("frmSetup", "btnScan_Click");
  const std::string path = edited.ModemLogDir + edited.ModemLogFile;
  TraceStep(PathText(path));
  ProgressBar1.SetValue(0);
  ProgressBar1.Visible = true;
  fralblServices.Visible = false;
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  int found = 0;
  const auto show = [&] {
    ++found;
    AddServiceRow(edited.UsedServices - 1);
    ShowServiceCount();
    EnableEditing();
  };
  const auto proceed = [this](int percent) {
    ProgressBar1.SetValue(percent);
    CurrentHost().Yield();
    return Page.Parent().IsLoaded();  // nobody has closed the window meanwhile
  };
  const bool done = Attempt([&] { ScanForServices(edited, path, show, proceed); });
  CurrentHost().SetMousePointer(MousePointer::Default);
  if (!Page.Parent().IsLoaded()) return;
  ProgressBar1.SetValue(100);
  ProgressBar1.Visible = false;
  fralblServices.Visible = Page.Visible();  // the user may have gone to another tab
  if (done || found > 0) TellScanned(found);
  lstServices.SetFocus();
}

}  // namespace qel
