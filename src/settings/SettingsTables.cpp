#include "settings/SettingsTables.h"

#include "settings/Settings.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr bool NotDirty = false;

const Setting General[] = {
    {"ModemLogFile", StoredAs::Text, &ModemLogFile},
    {"ModemLogDir", StoredAs::Text, &ModemLogDir},
    {"MaxServices", StoredAs::Whole, &MaxServices, 10.0},
    {"UsedServices", StoredAs::Whole, &UsedServices},
    {"MaxConnections", StoredAs::Whole, &MaxConnections, 200.0},
    {"MaxConnectDays", StoredAs::Whole, &MaxConnectDays, 2.0},
    {"NoDisconDuration", StoredAs::Whole, &NoDisconDuration, 900.0},
    // The default is 0, which is missing at the next start again: the settings are stored at every start.
    {"NoDisconData", StoredAs::Whole, &NoDisconData, 0.0},
    {"MaxLogSize", StoredAs::Whole, &MaxLogSize, 150.0},
    {"PreferredModem", StoredAs::Whole, &PreferredModem},
    {"UserStartPref", StoredAs::Text, &UserStartPref, "Last Log Entry", NotDirty},
    {"UserStartDate", StoredAs::Whole, &UserStartDate},
    {"UserStartOfWeek", StoredAs::Whole, &UserStartOfWeek},
    {"UserStartOfMonth", StoredAs::Whole, &UserStartOfMonth},
    {"UserReportPref", StoredAs::Whole, &UserReportPref},
    {"MainWinWidth", StoredAs::Whole, &MainWinWidth},
    {"MainWinHeight", StoredAs::Whole, &MainWinHeight},
};

const Setting Booleans[] = {
    {"EditLog", StoredAs::Word, &EditLog, true},
    {"ShowErrors", StoredAs::Word, &ShowErrors, true},
    {"ShowToolbars", StoredAs::Word, &ShowToolbars, true},
    {"FlatToolbars", StoredAs::Word, &FlatToolbars, true},
    {"ShowGraphic", StoredAs::Word, &ShowGraphic, true},
    {"AutoOptimize", StoredAs::Word, &AutoOptimize, false},
    {"ModemCheck", StoredAs::Word, &ModemCheck, true, NotDirty},
    {"Tips", StoredAs::Word, &Tips, true, NotDirty},
};

const char* const GeneralOrder[] = {
    "ModemLogFile",     "ModemLogDir",    "MaxServices",      "UsedServices",
    "MaxConnections",   "MaxConnectDays", "NoDisconDuration", "NoDisconData",
    "MaxLogSize",       "EditLog",        "ShowErrors",       "ShowToolbars",
    "FlatToolbars",     "ShowGraphic",    "AutoOptimize",     "Tips",
    "ModemCheck",       "UserStartPref",  "UserStartDate",    "UserStartOfWeek",
    "UserStartOfMonth", "UserReportPref",
};

const Setting Modem[] = {
    {"ModemDial", StoredAs::Text, &ModemDial, "RECV: ATD"},
    {"ModemAnswer", StoredAs::Text, &ModemAnswer, "ANSWERING"},
    {"ModemConnect", StoredAs::Text, &ModemConnect, "CONNECTION ESTABLISHED"},
    {"ModemUserDisconnect", StoredAs::Text, &ModemUserDisconnect, "HANGING UP THE MODEM"},
    {"ModemHostDisconnect", StoredAs::Text, &ModemHostDisconnect, "REMOTE MODEM HUNG UP"},
    {"ModemReads", StoredAs::Text, &ModemReads, "READS"},
    {"ModemWrites", StoredAs::Text, &ModemWrites, "WRITES"},
};

const Setting Costs[] = {
    {"CalcCosts", StoredAs::Word, &CalcCosts, true},
    {"DialCost", StoredAs::Money, &DialCost, 0.2},
    {"CostPerHour", StoredAs::Money, &CostPerHour, 1.5},
    {"CostPerMeg", StoredAs::Money, &CostPerMeg, 0.0},
};

const Setting ViewLog[] = {
    {"SaveSettings", StoredAs::Word, &ViewLogSettings.SaveSettings, false},
    {"FontName", StoredAs::Text, &ViewLogSettings.FontName, "MS Sans Serif"},
    {"FontSize", StoredAs::Whole, &ViewLogSettings.FontSize, 8.0},
    {"FontBold", StoredAs::Whole, &ViewLogSettings.FontBold, false},
    {"FontItalic", StoredAs::Whole, &ViewLogSettings.FontItalic, false},
    {"WinHeight", StoredAs::Whole, &ViewLogSettings.WinHeight, 4300.0},
    {"WinWidth", StoredAs::Whole, &ViewLogSettings.WinWidth, 6000.0},
    {"WinState", StoredAs::Whole, &ViewLogSettings.WinState, 0.0},
};

const Setting ViewReport[] = {
    {"SaveSettings", StoredAs::Word, &SaveReportSettings, true},
    {"ListView", StoredAs::Word, &ReportListView, true},
    {"AutoArrange", StoredAs::Word, &ReportAutoArrange, false},
};

const Setting SummaryReport[] = {
    {"WinHeight", StoredAs::Whole, &SummaryViewSettings.WinHeight, 5100.0},
    {"WinWidth", StoredAs::Whole, &SummaryViewSettings.WinWidth, 6900.0},
    {"WinLeft", StoredAs::Whole, &SummaryViewSettings.WinLeft, 100.0},
    {"WinTop", StoredAs::Whole, &SummaryViewSettings.WinTop, 100.0},
    {"FontSize", StoredAs::Whole, &SummaryViewSettings.FontSize, 9.0},
    {"Column1", StoredAs::Whole, &SummaryViewSettings.Column[0], 1000.0},
    {"Column2", StoredAs::Whole, &SummaryViewSettings.Column[1], 1000.0},
    {"Column3", StoredAs::Whole, &SummaryViewSettings.Column[2], 700.0},
    {"Column4", StoredAs::Whole, &SummaryViewSettings.Column[3], 1000.0},
    {"Column5", StoredAs::Whole, &SummaryViewSettings.Column[4], 1000.0},
};

const Setting DetailReport[] = {
    {"WinHeight", StoredAs::Whole, &DetailViewSettings.WinHeight, 5100.0},
    {"WinWidth", StoredAs::Whole, &DetailViewSettings.WinWidth, 6900.0},
    {"WinLeft", StoredAs::Whole, &DetailViewSettings.WinLeft, 100.0},
    {"WinTop", StoredAs::Whole, &DetailViewSettings.WinTop, 100.0},
    {"FontSize", StoredAs::Whole, &DetailViewSettings.FontSize, 9.0},
    {"Column1", StoredAs::Whole, &DetailViewSettings.Column[0], 1000.0},
    {"Column2", StoredAs::Whole, &DetailViewSettings.Column[1], 1000.0},
    {"Column3", StoredAs::Whole, &DetailViewSettings.Column[2], 700.0},
    {"Column4", StoredAs::Whole, &DetailViewSettings.Column[3], 1000.0},
    {"Column5", StoredAs::Whole, &DetailViewSettings.Column[4], 1000.0},
    {"Column6", StoredAs::Whole, &DetailViewSettings.Column[5], 2000.0},
};

// ForceAMPM goes to whichever key was stored last.
const Setting AnyKey[] = {{"ForceAMPM", StoredAs::Whole, &ForceAMPM}};

const char* const RecentFileSeries[] = {"RecentFileName", "RecentFilePath", "RecentFileType"};

const struct {
  const char* Key;
  std::span<const Setting> Settings;
} Keys[] = {
    {"\\General", General},
    {"\\General", Booleans},
    {"\\Modem", Modem},
    {"\\Costs", Costs},
    {"\\ViewLog", ViewLog},
    {"\\ViewReport", ViewReport},
    {"\\ViewReport\\SummaryReport", SummaryReport},
    {"\\ViewReport\\DetailReport", DetailReport},
};

std::optional<SettingForm> FormIn(std::span<const Setting> settings, std::string_view name) {
  for (const auto& setting : settings)
    if (EqualNoCase(setting.Name, name)) return SettingForm{setting.As, setting.Place};
  return std::nullopt;
}

}  // namespace

std::span<const Setting> GeneralSettings() { return General; }
std::span<const Setting> BooleanSettings() { return Booleans; }
std::span<const Setting> ModemSettings() { return Modem; }
std::span<const Setting> CostSettings() { return Costs; }
std::span<const Setting> ViewLogTable() { return ViewLog; }
std::span<const Setting> ViewReportTable() { return ViewReport; }
std::span<const Setting> SummaryReportTable() { return SummaryReport; }
std::span<const Setting> DetailReportTable() { return DetailReport; }
std::span<const char* const> GeneralStoreOrder() { return GeneralOrder; }

std::optional<SettingForm> FormOf(std::string_view key, std::string_view name) {
  if (EqualNoCase(key, "\\Services")) return FormOfService(name);
  if (EqualNoCase(key, "\\Holidays")) return FormOfHoliday(name);
  for (const auto& row : Keys)
    if (EqualNoCase(key, row.Key))
      if (const auto form = FormIn(row.Settings, name)) return form;
  if (EqualNoCase(key, "\\RecentFiles"))
    for (const char* series : RecentFileSeries)
      if (IsNumbered(name, series)) return SettingForm{StoredAs::Text, &RecentFiles[0].RecentFileName};
  return FormIn(AnyKey, name);
}

bool IsMissing(const Setting& setting) {
  return std::visit(
      [](const auto* place) {
        using Place = std::remove_cvref_t<decltype(*place)>;
        if constexpr (std::is_same_v<Place, Option>)
          return !place->Given();
        else
          return *place == Place();
      },
      setting.Place);
}

void SetDefault(const Setting& setting) {
  std::visit(
      [](auto* place, auto value) {
        using Place = std::remove_cvref_t<decltype(*place)>;
        using Value = decltype(value);
        constexpr bool isText = std::is_same_v<Place, std::string>;
        constexpr bool isTruth = std::is_same_v<Place, bool> || std::is_same_v<Place, Option>;
        if constexpr (std::is_same_v<Value, const char*> ? isText
                      : std::is_same_v<Value, bool>      ? isTruth
                      : std::is_same_v<Value, double>    ? !isText && !isTruth
                                                         : false)
          *place = Place(value);
      },
      setting.Place, setting.Default);
}

}  // namespace qel
