#include "cli/SettingsImport.h"

#include "cli/CommandLineHost.h"
#include "core/ErrorHandler.h"
#include "core/Places.h"
#include "registry/RegistryStore.h"
#include "registry/StoredRegion.h"
#include "settings/SettingsExchange.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

void TellSetAsideStores(RegistryStore& store) {
  for (const auto& file : store.TakeSetAside())
    Complain(ShownPath(file.Path) + " could not be read (" + file.Why + "); it is kept as " +
             ShownPath(file.KeptAs));
}

}  // namespace

bool ImportSettings(const std::string& path) {
  const std::string storePath = SettingsStorePath();
  // Times in the file are judged by the regional values. Those of a store that cannot be read are the
  // locale's; opening it to write decides about such a store, but only for a file that will be taken.
  RegistryStore store;
  IgnoreErrors([&] { store.Open(storePath, RegistryStore::Access::ReadOnly); });
  Region = GetCurrencySymbolInfo(store);
  std::string why;
  const auto file = FindSettingsFile(path, why);
  if (!file) {
    Complain("cannot import " + ShownPath(path) + ": " + ToUtf8(why));
    return false;
  }
  try {
    store.Open(storePath, RegistryStore::Access::Shared);
    ImportOptions(store, *file);
    store.Flush();
    TellSetAsideStores(store);
  } catch (const RunTimeError& error) {
    TellSetAsideStores(store);
    Complain("cannot write the settings to " + ShownPath(storePath) + ": " + ReasonOf(error));
    return false;
  }
  Complain(ShownPath(path) + ": imported " + Counted(file->Values, "value") + " in " +
           Counted(file->Keys, "key"));
  if (file->PassedOver > 0)
    Complain(ShownPath(path) + ": passed over " + Counted(file->PassedOver, "key") + " of other programs");
  return true;
}

}  // namespace qel
