#include "settings/SettingRow.h"

#include <algorithm>

#include "core/Surroundings.h"
#include "platform/TextToDate.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr double MoneyScale = 10000;

RegistryType StoredType(StoredAs as) {
  return as == StoredAs::Whole || as == StoredAs::Money ? REG_DWORD : REG_SZ;
}

bool IsEmpty(const SettingValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  return std::holds_alternative<std::monostate>(value) || (text && text->empty());
}

// The words of any case, or a number that is not zero.
bool TruthOf(const SettingValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (EqualNoCase(*text, "True")) return true;
    if (EqualNoCase(*text, "False")) return false;
    return TextToNumber(*text) != 0;
  }
  return WholeOf(value) != 0;
}

double NumberOf(const SettingValue& value, StoredAs as) {
  const auto* text = std::get_if<std::string>(&value);
  if (as == StoredAs::Money) return WholeOf(value) / MoneyScale;
  if (!text) return WholeOf(value);
  return as == StoredAs::Clock ? TextToDate(*text) : TextToNumber(*text);
}

struct Loader {
  const SettingValue& value;
  StoredAs as;

  void operator()(std::string* place) const { *place = TextOf(value); }
  void operator()(bool* place) const { *place = !IsEmpty(value) && TruthOf(value); }
  void operator()(Option* place) const { *place = IsEmpty(value) ? Option() : Option(TruthOf(value)); }
  void operator()(auto* place) const {
    using Number = std::remove_pointer_t<decltype(place)>;
    *place = IsEmpty(value) ? Number(0) : Number(NumberOf(value, as));
  }
};

struct Storer {
  StoredAs as;

  SettingValue operator()(const std::string* place) const { return *place; }
  SettingValue operator()(const bool* place) const { return *place; }
  SettingValue operator()(const Option* place) const { return bool{*place}; }
  SettingValue operator()(const auto* place) const {
    const double number = *place;
    if (as == StoredAs::Clock) return DateValue{number};
    return as == StoredAs::Money ? number * MoneyScale : number;
  }
};

// So that the report of a failure names the value.
void TraceSetting(const std::string& keyName, const std::string& valueName) {
  CurrentSurroundings().StepTrace += ": " + keyName + "\\" + valueName;
}

}  // namespace

void LoadSetting(RegistryStore& store, const std::string& keyName, const std::string& valueName, StoredAs as,
                 const SettingPlace& place) {
  const SettingValue value = QueryValue(store, SettingsRoot, keyName, valueName);
  try {
    std::visit(Loader{value, as}, place);
  } catch (const RunTimeError&) {
    // What nobody could read is not written over by the emptiness that it left.
    const SettingValue left = std::visit(Storer{as}, place);
    store.TakeAsRead(KeyPath(SettingsRoot, keyName), valueName, Encoded(left, StoredType(as)).value());
    TraceSetting(keyName, valueName);
    throw;
  }
}

void CheckSetting(const RegistryValue& stored, const SettingForm& form) {
  if (stored.Type != StoredType(form.As)) Raise(TypeMismatch);
  const SettingValue value = Decoded(stored).value();
  std::visit(
      [&](auto trial) {
        if constexpr (!std::is_same_v<decltype(trial), std::monostate>) Loader{value, form.As}(&trial);
      },
      form.Type);
}

void StoreSetting(RegistryStore& store, const std::string& keyName, const std::string& valueName, StoredAs as,
                  const SettingPlace& place) {
  try {
    SetKeyValue(store, SettingsRoot, keyName, valueName, std::visit(Storer{as}, place), StoredType(as));
  } catch (const RunTimeError&) {
    TraceSetting(keyName, valueName);
    throw;
  }
}

bool IsMissing(const SettingPlace& place) {
  return std::visit(
      [](const auto* value) {
        using Value = std::remove_cvref_t<decltype(*value)>;
        if constexpr (std::is_same_v<Value, Option>)
          return !value->Given();
        else
          return *value == Value();
      },
      place);
}

void SetDefault(const SettingPlace& place, const TypedValue& value) {
  std::visit(
      [&value](auto* to) {
        using Value = std::remove_reference_t<decltype(*to)>;
        const auto* given = std::get_if<Value>(&value);
        *to = given ? *given : Value();
      },
      place);
}

bool IsNumbered(std::string_view name, std::string_view series) {
  const std::string_view number = name.substr(std::min(series.size(), name.size()));
  return EqualNoCase(name.substr(0, series.size()), series) && !number.empty() &&
         std::all_of(number.begin(), number.end(), IsDigit);
}

}  // namespace qel
