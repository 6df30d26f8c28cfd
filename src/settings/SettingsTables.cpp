#include "settings/SettingsTables.h"

#include "settings/ServiceStore.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr bool NotDirty = false;

const SettingRow<Settings> General[] = {
    Row<&Settings::ModemLogFile>("ModemLogFile", StoredAs::Text),
    Row<&Settings::ModemLogDir>("ModemLogDir", StoredAs::Text),
    Row<&Settings::MaxServices>("MaxServices", StoredAs::Whole, 10),
    Row<&Settings::UsedServices>("UsedServices", StoredAs::Whole),
    Row<&Settings::MaxConnections>("MaxConnections", StoredAs::Whole, 200),
    Row<&Settings::MaxConnectDays>("MaxConnectDays", StoredAs::Whole, 2),
    Row<&Settings::NoDisconDuration>("NoDisconDuration", StoredAs::Whole, 900),
    // The default is 0, which is missing at the next start again: the settings are stored at every start.
    Row<&Settings::NoDisconData>("NoDisconData", StoredAs::Whole, 0),
    Row<&Settings::MaxLogSize>("MaxLogSize", StoredAs::Whole, 150),
    Row<&Settings::PreferredModem>("PreferredModem", StoredAs::Whole),
    Row<&Settings::UserStartPref>("UserStartPref", StoredAs::Text, "Last Log Entry", NotDirty),
    Row<&Settings::UserStartDate>("UserStartDate", StoredAs::Whole),
    Row<&Settings::UserStartOfWeek>("UserStartOfWeek", StoredAs::Whole),
    Row<&Settings::UserStartOfMonth>("UserStartOfMonth", StoredAs::Whole),
    Row<&Settings::UserReportPref>("UserReportPref", StoredAs::Whole),
};

const SettingRow<WindowSettings> MainWindow[] = {
    Row<&WindowSettings::MainWinWidth>("MainWinWidth", StoredAs::Whole),
    Row<&WindowSettings::MainWinHeight>("MainWinHeight", StoredAs::Whole),
};

const SettingRow<Settings> Booleans[] = {
    Row<&Settings::EditLog>("EditLog", StoredAs::Word, true),
    Row<&Settings::ShowErrors>("ShowErrors", StoredAs::Word, true),
    Row<&Settings::ShowToolbars>("ShowToolbars", StoredAs::Word, true),
    Row<&Settings::FlatToolbars>("FlatToolbars", StoredAs::Word, true),
    Row<&Settings::ShowGraphic>("ShowGraphic", StoredAs::Word, true),
    Row<&Settings::AutoOptimize>("AutoOptimize", StoredAs::Word, false),
    Row<&Settings::ModemCheck>("ModemCheck", StoredAs::Word, true, NotDirty),
    Row<&Settings::Tips>("Tips", StoredAs::Word, true, NotDirty),
};

const char* const GeneralOrder[] = {
    "ModemLogFile",     "ModemLogDir",    "MaxServices",      "UsedServices",
    "MaxConnections",   "MaxConnectDays", "NoDisconDuration", "NoDisconData",
    "MaxLogSize",       "EditLog",        "ShowErrors",       "ShowToolbars",
    "FlatToolbars",     "ShowGraphic",    "AutoOptimize",     "Tips",
    "ModemCheck",       "UserStartPref",  "UserStartDate",    "UserStartOfWeek",
    "UserStartOfMonth", "UserReportPref",
};

const SettingRow<Settings> Modem[] = {
    Row<&Settings::ModemDial>("ModemDial", StoredAs::Text, "RECV: ATD"),
    Row<&Settings::ModemAnswer>("ModemAnswer", StoredAs::Text, "ANSWERING"),
    Row<&Settings::ModemConnect>("ModemConnect", StoredAs::Text, "CONNECTION ESTABLISHED"),
    Row<&Settings::ModemUserDisconnect>("ModemUserDisconnect", StoredAs::Text, "HANGING UP THE MODEM"),
    Row<&Settings::ModemHostDisconnect>("ModemHostDisconnect", StoredAs::Text, "REMOTE MODEM HUNG UP"),
    Row<&Settings::ModemReads>("ModemReads", StoredAs::Text, "READS"),
    Row<&Settings::ModemWrites>("ModemWrites", StoredAs::Text, "WRITES"),
};

const SettingRow<Settings> Costs[] = {
    Row<&Settings::CalcCosts>("CalcCosts", StoredAs::Word, true),
    Row<&Settings::DialCost>("DialCost", StoredAs::Money, 0.2),
    Row<&Settings::CostPerHour>("CostPerHour", StoredAs::Money, 1.5),
    Row<&Settings::CostPerMeg>("CostPerMeg", StoredAs::Money, 0),
};

const SettingRow<ViewLogRecord> ViewLog[] = {
    Row<&ViewLogRecord::SaveSettings>("SaveSettings", StoredAs::Word, false),
    Row<&ViewLogRecord::FontName>("FontName", StoredAs::Text, "MS Sans Serif"),
    Row<&ViewLogRecord::FontSize>("FontSize", StoredAs::Whole, 8),
    Row<&ViewLogRecord::FontBold>("FontBold", StoredAs::Whole, false),
    Row<&ViewLogRecord::FontItalic>("FontItalic", StoredAs::Whole, false),
    Row<&ViewLogRecord::WinHeight>("WinHeight", StoredAs::Whole, 4300),
    Row<&ViewLogRecord::WinWidth>("WinWidth", StoredAs::Whole, 6000),
    Row<&ViewLogRecord::WinState>("WinState", StoredAs::Whole, 0),
};

const SettingRow<WindowSettings> ViewReport[] = {
    Row<&WindowSettings::SaveReportSettings>("SaveSettings", StoredAs::Word, true),
    Row<&WindowSettings::ReportListView>("ListView", StoredAs::Word, true),
    {.Name = "Charts",
     .As = StoredAs::Word,
     .PlaceIn = MemberOf<&WindowSettings::ReportCharts>::PlaceIn,
     .Default = {},
     .Dirty = false,
     .OnlyWhereSet = true},
    Row<&WindowSettings::ReportAutoArrange>("AutoArrange", StoredAs::Word, false),
};

template <std::size_t Index>
SettingRow<ReportViewSettings> Column(const char* name, int width) {
  return {name, StoredAs::Whole, [](ReportViewSettings& view) { return SettingPlace(&view.Column[Index]); },
          Int32(width)};
}

// Details has all of these columns, Summary one less.
const SettingRow<ReportViewSettings> ReportWindow[] = {
    Row<&ReportViewSettings::WinHeight>("WinHeight", StoredAs::Whole, 5100),
    Row<&ReportViewSettings::WinWidth>("WinWidth", StoredAs::Whole, 6900),
    Row<&ReportViewSettings::WinLeft>("WinLeft", StoredAs::Whole, 100),
    Row<&ReportViewSettings::WinTop>("WinTop", StoredAs::Whole, 100),
    Row<&ReportViewSettings::FontSize>("FontSize", StoredAs::Whole, 9),
    Column<0>("Column1", 1000),
    Column<1>("Column2", 1000),
    Column<2>("Column3", 700),
    Column<3>("Column4", 1000),
    Column<4>("Column5", 1000),
    Column<5>("Column6", 2000),
};

const SettingRow<Settings> AnyKey = Row<&Settings::ForceAMPM>("ForceAMPM", StoredAs::Whole);

const char* const RecentFileSeries[] = {"RecentFileName", "RecentFilePath", "RecentFileType"};

template <class Rows>
std::optional<SettingForm> FormIn(const Rows& rows, std::string_view name) {
  for (const auto& row : rows)
    if (EqualNoCase(row.Name, name)) return FormOf(row);
  return std::nullopt;
}

std::optional<SettingForm> FormOfRecentFile(std::string_view name) {
  for (const char* series : RecentFileSeries)
    if (IsNumbered(name, series)) return SettingForm{StoredAs::Text, std::string()};
  return std::nullopt;
}

// The tables of a key, whose path below the program's own is `key`.
std::optional<SettingForm> FormInKey(std::string_view key, std::string_view name) {
  const auto is = [key](const char* other) { return EqualNoCase(key, other); };
  if (is("\\Services")) return FormOfService(name);
  if (is("\\Holidays")) return FormOfHoliday(name);
  if (is("\\Modem")) return FormIn(Modem, name);
  if (is("\\Costs")) return FormIn(Costs, name);
  if (is("\\ViewLog")) return FormIn(ViewLog, name);
  if (is("\\ViewReport")) return FormIn(ViewReport, name);
  if (is("\\ViewReport\\SummaryReport")) return FormIn(SummaryReportTable(), name);
  if (is("\\ViewReport\\DetailReport")) return FormIn(DetailReportTable(), name);
  if (is("\\RecentFiles")) return FormOfRecentFile(name);
  if (!is("\\General")) return std::nullopt;
  if (const auto form = FormIn(General, name)) return form;
  if (const auto form = FormIn(MainWindow, name)) return form;
  return FormIn(Booleans, name);
}

}  // namespace

std::span<const SettingRow<Settings>> GeneralSettings() { return General; }
std::span<const SettingRow<WindowSettings>> MainWindowTable() { return MainWindow; }
std::span<const SettingRow<Settings>> BooleanSettings() { return Booleans; }
std::span<const SettingRow<Settings>> ModemSettings() { return Modem; }
std::span<const SettingRow<Settings>> CostSettings() { return Costs; }
std::span<const SettingRow<ViewLogRecord>> ViewLogTable() { return ViewLog; }
std::span<const SettingRow<WindowSettings>> ViewReportTable() { return ViewReport; }
std::span<const SettingRow<ReportViewSettings>> SummaryReportTable() {
  return std::span(ReportWindow).first(std::size(ReportWindow) - 1);
}
std::span<const SettingRow<ReportViewSettings>> DetailReportTable() { return ReportWindow; }
const SettingRow<Settings>& AnyKeySetting() { return AnyKey; }
std::span<const char* const> GeneralStoreOrder() { return GeneralOrder; }

std::optional<SettingForm> FormOf(std::string_view key, std::string_view name) {
  if (const auto form = FormInKey(key, name)) return form;
  const bool services = EqualNoCase(key, "\\Services") || EqualNoCase(key, "\\Holidays");
  return services || !EqualNoCase(name, AnyKey.Name) ? std::nullopt : std::optional(FormOf(AnyKey));
}

}  // namespace qel
