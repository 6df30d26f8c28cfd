// One setting between memory and the store: the member of its record, its name, and how it is stored. The
// tables of settings, services and tariffs are made of these, and serve any record of their kind.
#pragma once

#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "settings/StoredValues.h"
#include "values/CheckedInteger.h"

namespace qel {

// A yes or no that knows whether it was ever given: a missing one takes its default at the start.
class Option {
 public:
  Option() = default;
  Option(bool value) : value(value), given(true) {}
  operator bool() const { return value; }
  bool Given() const { return given; }

 private:
  bool value = false;
  bool given = false;
};

enum class StoredAs {
  Text,   // REG_SZ as it stands
  Word,   // REG_SZ, "True" or "False"
  Clock,  // REG_SZ, a date or time in regional form
  Whole,  // REG_DWORD, the nearest whole number; a boolean as -1 or 0
  Money,  // REG_DWORD, the amount x 10000, nearest, ties to even
};

// Where the value of a setting is, and a value of its type.
using SettingPlace = std::variant<std::string*, Int16*, Int32*, float*, double*, bool*, Option*>;
using TypedValue = std::variant<std::monostate, std::string, Int16, Int32, float, double, bool, Option>;

// A default fits a setting of its own kind: a text, a truth, a whole number, or any number for one with
// decimals.
template <class Value, class Default>
concept IsDefaultOf =
    (std::is_same_v<Value, std::string> && std::is_convertible_v<Default, std::string>) ||
    ((std::is_same_v<Value, bool> || std::is_same_v<Value, Option>)&&std::is_same_v<Default, bool>) ||
    ((std::is_same_v<Value, float> || std::is_same_v<Value, double>)&&(std::is_same_v<Default, int> ||
                                                                       std::is_same_v<Default, double>)) ||
    ((std::is_same_v<Value, Int16> || std::is_same_v<Value, Int32>)&&std::is_same_v<Default, int>);

template <class Record>
struct SettingRow {
  const char* Name;
  StoredAs As;
  SettingPlace (*PlaceIn)(Record&);
  TypedValue Default;               // empty: none
  bool Dirty = true;                // filling the default in means that the settings must be stored
  const char* WriteName = nullptr;  // where it is not Name
  // Where another value has this one's name: the digits before the number of the service that it belongs to.
  const char* RivalDigits = nullptr;
  bool OnlyWhereSet = false;  // an empty value that the store does not have is not put there
};

template <auto Member>
struct MemberOf;
template <class TheRecord, class TheValue, TheValue TheRecord::*Member>
struct MemberOf<Member> {
  using Record = TheRecord;
  using Value = TheValue;
  static SettingPlace PlaceIn(Record& record) { return &(record.*Member); }
};

// The row of one member: Row<&Settings::MaxServices>("MaxServices", StoredAs::Whole, 10).
template <auto Member>
SettingRow<typename MemberOf<Member>::Record> Row(const char* name, StoredAs as) {
  return {name, as, MemberOf<Member>::PlaceIn, {}};
}
template <auto Member, class Default>
requires IsDefaultOf<typename MemberOf<Member>::Value, Default> SettingRow<typename MemberOf<Member>::Record>
Row(const char* name, StoredAs as, Default value, bool dirty = true) {
  return {name, as, MemberOf<Member>::PlaceIn, typename MemberOf<Member>::Value(value), dirty};
}

// How a value is stored, and a value of the type that it must fit.
struct SettingForm {
  StoredAs As;
  TypedValue Type;
};

template <class Record>
SettingForm FormOf(const SettingRow<Record>& row) {
  Record record;
  return {row.As, std::visit([](const auto* place) { return TypedValue(*place); }, row.PlaceIn(record))};
}

// Reads one value into its place; a missing value makes the place empty (0, "", false, not given).
// Raises 13 for a text that does not convert, 6 for a number that does not fit: the trace then names the
// value, the place is as it was, and the store keeps what it has until something else is to be stored there.
void LoadSetting(RegistryStore& store, const std::string& keyName, const std::string& valueName, StoredAs as,
                 const SettingPlace& place);

// Raises 13 for a value of another type than its form's or that does not convert, 6 for one that does not
// fit.
void CheckSetting(const RegistryValue& stored, const SettingForm& form);

// Raises 6 for an amount or number beyond 32 bits; the trace then names the value.
void StoreSetting(RegistryStore& store, const std::string& keyName, const std::string& valueName, StoredAs as,
                  const SettingPlace& place);

// Whether the value is empty: 0, "", false, not given.
bool IsMissing(const SettingPlace& place);

// A default as SettingRow has it, or without one the empty value.
void SetDefault(const SettingPlace& place, const TypedValue& value);

// Whether a value's name is that of a series and a number behind it: "ServiceName12".
bool IsNumbered(std::string_view name, std::string_view series);

}  // namespace qel
