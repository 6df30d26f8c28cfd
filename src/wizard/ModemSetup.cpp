#include "wizard/ModemSetup.h"

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "maintenance/LogSwap.h"
#include "modemlog/NewLog.h"
#include "settings/UserParameters.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr char ClassKey[] = "System\\CurrentControlSet\\Services\\Class";
constexpr char EchoOn[] = "E1";

bool Contains(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

// A store that was exported on the old system holds paths with "\".
std::size_t FileNameBegin(const std::string& path) { return path.find_last_of("/\\") + 1; }
std::string LogFile(const std::string& path) { return path.substr(FileNameBegin(path)); }
std::string LogFolder(const std::string& path) { return path.substr(0, FileNameBegin(path)); }

}  // namespace

SettingValue ModemSetup::ModemValue(const std::string& modemKey, const char* name) const {
  return QueryValue(store, RegistryRoot::LocalMachine, ClassKey + modemKey, name);
}

std::string ModemSetup::ModemText(const std::string& modemKey, const char* name) const {
  return TextOf(ModemValue(modemKey, name));
}

void ModemSetup::SetModemValue(const ModemRecord& modem, const char* name, const SettingValue& value,
                               RegistryType type) {
  SetKeyValue(store, RegistryRoot::LocalMachine, ClassKey + modem.ModemKey, name, value, type);
}

// The entries of a kind are numbered without a gap; the first missing one ends them.
template <typename Taker>
void ModemSetup::TakeEntries(const char* kind, const Taker& take) {
  for (int i = 0; ModemCount < MostModems; ++i) {
    ModemRecord modem;
    modem.ModemKey = kind + PadLeft(std::to_string(i), '0', 4);
    modem.DriverDesc = ModemText(modem.ModemKey, "DriverDesc");
    if (modem.DriverDesc.empty()) return;
    if (!take(modem)) continue;
    Modems[ModemCount] = modem;
    ++ModemCount;
  }
}

void ModemSetup::DetectModems() {
  TakeEntries("\\Modem\\", [this](ModemRecord& modem) {
    if (Contains(modem.DriverDesc, "2 PCs")) return false;  // a cable between two computers
    modem.AttachedTo = ModemText(modem.ModemKey, "AttachedTo");
    return true;
  });
  TakeEntries("\\Ports\\", [this](const ModemRecord& port) {
    return Contains(UpperCase(ModemText(port.ModemKey, "ConfigDialog")), "MODEM");
  });
}

void ModemSetup::LookAtModems() {
  const auto look = [this](Int16 number) { Attempt([&] { ReadModemSettings(number); }); };
  ModemConfigOK = true;
  if (settings.PreferredModem != 0) return look(settings.PreferredModem);
  for (Int16 number = 1; number <= ModemCount; ++number) look(number);
}

// The user may choose any of them: what was not looked at yet is read too, but decides nothing.
void ModemSetup::ReadTheOthers() {
  const bool lookedAt = ModemConfigOK;
  for (Int16 number = 1; number <= ModemCount; ++number)
    if (settings.PreferredModem != 0 && number != settings.PreferredModem)
      Attempt([&] { ReadModemSettings(number); });
  ModemConfigOK = lookedAt;
}

// The folder is the first modem's, whichever is preferred. Of a preferred one that is not the first it is
// empty, since the first was not looked at; the start then takes the default folder.
void ModemSetup::TakeActiveLog() {
  const Int16 number = settings.PreferredModem == 0 ? Int16(1) : settings.PreferredModem;
  Attempt([&] { places.ActiveLogFile = LogFile(Modems[number - 1].LoggingPath); });
  places.ActiveLogDir = LogFolder(Modems[0].LoggingPath);
}

bool ModemSetup::PreConfigure(bool interactive) {
  SetTrace("QELPreConfigure", "PreConfigure");
  Modems.Make(MostModems - 1);
  ModemCount = 0;
  ModemConfigOK = NewLogStarted = false;
  store.Refresh();  // the driver writes there when it likes
  if (!interactive) {
    CurrentDisplay().SplashText("Checking Modem Configuration");
    CurrentHost().Yield();
  }
  DetectModems();
  if (ModemCount == 0) {
    if (interactive)
      MsgBox({"Sorry .... QEL was unable to detect your modem(s).", "Modem Configuration Wizard",
              Icon::Information});
    return false;
  }
  LookAtModems();
  if (interactive || !ModemConfigOK) {
    ReadTheOthers();
    return true;
  }
  TakeActiveLog();
  return false;
}

void ModemSetup::ReadModemSettings(Int16 number) {
  SetTrace("QELPreConfigure", "ReadModemSettings");
  ModemRecord& modem = Modems[number - 1];
  modem.LoggingPath = ModemText(modem.ModemKey, "LoggingPath");
  if (modem.LoggingPath.empty()) ModemConfigOK = false;
  modem.Logging = WholeOf(ModemValue(modem.ModemKey, "Logging")) != 0;
  if (!modem.Logging) ModemConfigOK = false;
  modem.UserInit = UpperCase(ModemText(modem.ModemKey, "UserInit"));
  modem.Echo = Contains(modem.UserInit, EchoOn);
  if (!modem.Echo) ModemConfigOK = false;
}

void ModemSetup::DoChange(Int16 number) {
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CheckLogFile(number);
  const ModemRecord& modem = Modems[number - 1];
  if (!modem.Logging) SetModemValue(modem, "Logging", Int32(1), REG_BINARY);
  // Behind whatever stands there: the last command about the echo is the one that counts.
  if (!modem.Echo) SetModemValue(modem, "UserInit", modem.UserInit + EchoOn, REG_SZ);
  StoreGeneralValue(store, "PreferredModem", Int32(number), REG_DWORD);
  ModemConfigOK = true;
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void ModemSetup::CheckLogFile(Int16 number) {
  SetTrace("QELPreConfigure", "CheckLogFile");
  const ModemRecord& modem = Modems[number - 1];
  if (modem.LoggingPath.empty()) {
    if (Contains(places.OSName, "98")) places.DefaultLogFile = modem.DriverDesc + ".log";  // one log a modem
    SetModemValue(modem, "LoggingPath", places.DefaultLogDir + places.DefaultLogFile, REG_SZ);
  } else {
    // The first modem's log is the default one, whichever modem is set up.
    places.DefaultLogFile = LogFile(Modems[0].LoggingPath);
    places.DefaultLogDir = LogFolder(Modems[0].LoggingPath);
  }
  Attempt([this] {
    MendInterruptedSwap(places.DefaultLogDir + places.DefaultLogFile);
    if (NewModemLog(places.DefaultLogDir + places.DefaultLogFile)) NewLogStarted = true;
  });
}

}  // namespace qel
