// One setting between memory and the store: where it lives, under which name, and how it is written there.
// The tables of settings, services and tariffs are made of these.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "settings/Registry_Functions.h"
#include "values/Calendar.h"
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

using SettingPlace = std::variant<std::string*, Int16*, Int32*, float*, double*, bool*, Option*>;

// How a value is stored, and a place that it must fit.
struct SettingForm {
  StoredAs As;
  SettingPlace Place;
};

// Reads one value into its place; a missing value makes the place empty (0, "", false, not given).
// Raises 13 for a text that does not convert, 6 for a number that does not fit: the trace then names the
// value, the place is as it was, and the store keeps what it has until something else is to be stored there.
void LoadSetting(const std::string& keyName, const std::string& valueName, StoredAs as,
                 const SettingPlace& place);

// Raises 13 for a value of another type than its form's or that does not convert, 6 for one that does not
// fit. The place stays as it is.
void CheckSetting(const RegistryValue& stored, const SettingForm& form);

// Raises 6 for an amount or number beyond 32 bits; the trace then names the value.
void StoreSetting(const std::string& keyName, const std::string& valueName, StoredAs as,
                  const SettingPlace& place);

// Whether a value's name is that of a series and a number behind it: "ServiceName12".
bool IsNumbered(std::string_view name, std::string_view series);

}  // namespace qel
