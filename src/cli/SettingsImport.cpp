#include "cli/SettingsImport.h"

#include <string>

#include "analysis/ResetProgram.h"
#include "cli/CommandLineHost.h"
#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "registry/RegistryStore.h"
#include "registry/StoredRegion.h"
#include "settings/SettingsExchange.h"
#include "values/CodePage.h"

namespace qel {

namespace {

std::string Counted(int count, const char* noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

void TellSetAsideStores() {
  for (const auto& file : Registry.TakeSetAside())
    Complain(ShownPath(file.Path) + " could not be read (" + file.Why + "); it is kept as " +
             ShownPath(file.KeptAs));
}

}  // namespace

bool ImportSettings(const std::string& path) {
  ResetProgram();
  const std::string store = SettingsStorePath();
  // Times in the file are judged by the regional values. Those of a store that cannot be read are the
  // locale's; opening it to write decides about such a store, but only for a file that will be taken.
  Registry.Reset();
  IgnoreErrors([&] { Registry.Open(store, RegistryStore::Access::ReadOnly); });
  Region = GetCurrencySymbolInfo(Registry);
  std::string why;
  const auto file = FindSettingsFile(path, why);
  if (!file) {
    Complain("cannot import " + ShownPath(path) + ": " + ToUtf8(why));
    return false;
  }
  try {
    Registry.Open(store, RegistryStore::Access::Shared);
    ImportOptions(Registry, *file);
    Registry.Flush();
    TellSetAsideStores();
  } catch (const RunTimeError& error) {
    TellSetAsideStores();
    Complain("cannot write the settings to " + ShownPath(store) + ": " + ReasonOf(error));
    return false;
  }
  Complain(ShownPath(path) + ": imported " + Counted(file->Values, "value") + " in " +
           Counted(file->Keys, "key"));
  if (file->PassedOver > 0)
    Complain(ShownPath(path) + ": passed over " + Counted(file->PassedOver, "key") + " of other programs");
  return true;
}

}  // namespace qel
