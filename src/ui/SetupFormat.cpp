#include <span>

#include "core/ErrorHandler.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "platform/Clock.h"
#include "ui/SetupTabs.h"
#include "values/DateFormat.h"
#include "values/Region.h"

namespace qel {

namespace {

constexpr double SampleAmount = 1234567.89;

// The settings programs of the desktops, in the order of trying.
const char* const RegionalSettingsPrograms[] = {"gnome-control-center region",
                                                "systemsettings kcm_regionandlang", "xfce4-settings-manager",
                                                "lxqt-config-locale"};
const char* const ModemSettingsPrograms[] = {"nm-connection-editor", "gnome-control-center network",
                                             "systemsettings kcm_networkmanagement"};

// Tells the user where there is none of them.
bool StartFirstOf(std::span<const char* const> programs) {
  bool started = false;
  for (const char* program : programs) {
    IgnoreErrors([&] {
      CurrentHost().StartProgram(program);
      started = true;
    });
    if (started) return true;
  }
  MsgBox({"No program for these settings was found on this system.", "QEL Options", Icon::Information});
  return false;
}

}  // namespace

SetupFormat::SetupFormat(const SetupTab& tab, Frame& modemPage)
    : SetupTab(tab), Icon{{{Page, "Icon", 1}, {modemPage, "Icon", 2}}} {
  for (Picture& icon : Icon) icon.Click = [this, &icon] { Icon_Click(icon.Index()); };
}

void SetupFormat::Show() {
  lblCountry.Caption = Region.Country;
  lblRegionalSettings.Caption = "The Country setting for this computer is " + Region.Country +
                                ". Below are examples of your Currency format and 'Short' and 'Long' Date "
                                "formats.";
  lblPreview.Caption = MoneyText(SampleAmount);
  lblDateFormat.Caption =
      "You can alter these formats via the 'Regional Settings' icon in the Windows Control Panel or by "
      "clicking on the icon above.";
  lblShortDate.Caption = FormatDate(Today(), "Short Date");
  lblLongDate.Caption = FormatDate(Today(), "long date");
}

void SetupFormat::Icon_Click(int index) {
  if (index == 2)
    StartFirstOf(ModemSettingsPrograms);
  else if (StartFirstOf(RegionalSettingsPrograms))
    RegionalSettingsOpened = true;
}

}  // namespace qel
