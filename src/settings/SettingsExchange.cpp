#include "settings/SettingsExchange.h"

#include "platform/Files.h"
#include "registry/RegistryText.h"
#include "settings/ServiceStore.h"
#include "settings/SettingsTables.h"
#include "settings/StoredValues.h"
#include "values/CodePage.h"
#include "values/RunTimeError.h"

namespace qel {

namespace {

const std::string OwnRoot = KeyPath(SettingsRoot, SettingsKey);

RegistryTree OwnKeys(const RegistryTree& tree) {
  RegistryTree own;
  const auto copy = [&own](const auto& key) { MakeKey(own, key.first) = key.second; };
  if (const auto root = tree.find(OwnRoot); root != tree.end()) copy(*root);
  for (const auto& key : KeysBelow(tree, OwnRoot)) copy(key);
  return own;
}

int KeysWithValues(const RegistryTree& tree) {
  int count = 0;
  for (const auto& [key, values] : tree) count += values.empty() ? 0 : 1;
  return count;
}

// `key` is one of the program's or stands above them.
void CheckValue(const std::string& key, const std::string& name, const RegistryValue& value) {
  if (key.size() <= OwnRoot.size()) return;
  const auto form = FormOf(std::string_view(key).substr(OwnRoot.size()), name);
  if (!form) return;
  try {
    CheckSetting(value, *form);
  } catch (const RunTimeError& error) {
    throw SettingsFileError("\"" + name + "\" in " + key + ": " + error.Description());
  }
}

}  // namespace

std::string ExportedOptions(RegistryStore& store) {
  store.Refresh();
  return WriteRegistryFile(OwnKeys(store.Tree()));
}

SettingsFile ReadSettingsFile(const std::string& content) {
  const RegistryTree all = ParseRegistryFile(content);
  SettingsFile file{.Own = OwnKeys(all)};
  file.Keys = KeysWithValues(file.Own);
  if (file.Keys == 0) throw SettingsFileError("it holds no settings of QEL");
  file.PassedOver = KeysWithValues(all) - file.Keys;
  for (const auto& [key, values] : file.Own) {
    file.Values += static_cast<int>(values.size());
    for (const auto& [name, value] : values) CheckValue(key, name, value);
  }
  return file;
}

// A file of the old system has no unambiguous names; those that stand in the store would win over its values.
std::optional<SettingsFile> FindSettingsFile(const std::string& path, std::string& why) {
  try {
    return ReadSettingsFile(ReadWholeFile(path));
  } catch (const RegistryFileError& error) {
    why = error.what();
  } catch (const SettingsFileError& error) {
    why = error.what();
  } catch (const RunTimeError& error) {
    why = FromUtf8Lossy(ReasonOf(error));
  }
  return std::nullopt;
}

void ImportOptions(RegistryStore& store, const SettingsFile& file) {
  store.Refresh();
  for (const auto& [key, values] : file.Own) {
    store.CreateKey(key);
    for (const auto& [name, value] : values) {
      // Else what another program stored meanwhile would outlive a value that this one knew already.
      static_cast<void>(store.Query(key, name));
      store.Set(key, name, value);
      const auto own = OwnNameBeside(name);
      if (own && !values.contains(*own)) store.DeleteValue(key, *own);
    }
  }
}

}  // namespace qel
