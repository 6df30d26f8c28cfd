#include "settings/StoredValues.h"

#include <iostream>

#include "core/Surroundings.h"
#include "values/CodePage.h"
#include "values/DateText.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr long Success = 0;
constexpr long NotFound = 2;
constexpr long UnknownType = -1;

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

std::string BytesOf(const SettingValue& value) {
  return DwordBytes(static_cast<std::uint32_t>(std::int32_t{WholeOf(value)}));
}

}  // namespace

std::string KeyPath(RegistryRoot root, const std::string& keyName) {
  return (root == RegistryRoot::LocalMachine ? "HKEY_LOCAL_MACHINE\\" : "HKEY_CURRENT_USER\\") + keyName;
}

std::string TextOf(const SettingValue& value) {
  return std::visit(
      Overloaded{[](std::monostate) { return std::string(); }, [](const std::string& text) { return text; },
                 [](Int32 number) { return NumberText(number); },
                 [](double number) { return NumberText(number); },
                 [](DateValue date) { return DateText(date.Value); },
                 [](bool flag) { return std::string(flag ? "True" : "False"); }},
      value);
}

Int32 WholeOf(const SettingValue& value) {
  return std::visit(
      Overloaded{[](std::monostate) { return Int32(0); },
                 [](const std::string& text) { return Int32(TextToNumber(text)); },
                 [](Int32 number) { return number; }, [](double number) { return Int32(number); },
                 [](DateValue date) { return Int32(date.Value); },
                 [](bool flag) { return Int32(flag ? -1 : 0); }},
      value);
}

void CreatNewKey(RegistryStore& store, const std::string& keyName, RegistryRoot root) {
  TraceStep("CreatNewKey");
  store.CreateKey(KeyPath(root, keyName));
}

void SetKeyValue(RegistryStore& store, RegistryRoot root, const std::string& keyName,
                 const std::string& valueName, const SettingValue& value, std::uint32_t valueType) {
  TraceStep("SetKeyValue");
  SetValueEx(store, KeyPath(root, keyName), valueName, valueType, value);
}

SettingValue QueryValue(const RegistryStore& store, RegistryRoot root, const std::string& keyName,
                        const std::string& valueName) {
  TraceStep("QueryValue");
  SettingValue value;
  QueryValueEx(store, KeyPath(root, keyName), valueName, value);
  return value;
}

std::optional<RegistryValue> Encoded(const SettingValue& value, std::uint32_t valueType) {
  switch (valueType) {
    case REG_SZ:
      return RegistryValue{valueType, TextOf(value) + '\0'};
    case REG_BINARY:
      return RegistryValue{valueType, BytesOf(value).substr(0, 1)};
    case REG_DWORD:
      return RegistryValue{valueType, BytesOf(value)};
    default:
      return std::nullopt;
  }
}

long SetValueEx(RegistryStore& store, const std::string& key, const std::string& valueName,
                std::uint32_t valueType, const SettingValue& value) {
  TraceStep("SetValueEx");
  const auto stored = Encoded(value, valueType);
  return !stored || store.Set(key, valueName, *stored) ? Success : NotFound;
}

std::optional<SettingValue> Decoded(const RegistryValue& stored) {
  switch (stored.Type) {
    case REG_SZ:
      // All but the last character, which is the closing zero.
      return stored.Data.substr(0, stored.Data.empty() ? 0 : stored.Data.size() - 1);
    case REG_BINARY:
    case REG_DWORD:
      return Int32(static_cast<std::int32_t>(DwordOf(stored.Data)));
    default:
      return std::nullopt;
  }
}

long QueryValueEx(const RegistryStore& store, const std::string& key, const std::string& valueName,
                  SettingValue& value) {
  TraceStep("QueryValueEx");
  const RegistryValue* stored = store.Query(key, valueName);
  if (!stored) return NotFound;
  const auto decoded = Decoded(*stored);
  if (!decoded) return UnknownType;
  value = *decoded;
  return Success;
}

void SaveRegistry(RegistryStore& store) {
  const bool told = store.FlushFailed();
  try {
    store.Flush();
  } catch (const RunTimeError& error) {
    if (!told) std::cerr << "qel: the settings could not be written: " << error.Description() << '\n';
  }
}

void TellSetAside(RegistryStore& store) {
  for (const auto& file : store.TakeSetAside())
    MsgBox({"QEL could not read your settings file\r\n" + PathText(file.Path) + "\r\n(" +
                FromUtf8Lossy(file.Why) + ").\r\n\r\nThe file is kept as\r\n" + PathText(file.KeptAs) +
                "\r\nand a new one takes its place.",
            "QEL Settings", Icon::Exclamation});
}

}  // namespace qel
