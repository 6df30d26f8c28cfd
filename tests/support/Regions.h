// Regions that write dates, times and numbers in different ways.
#pragma once

#include <gtest/gtest.h>

#include "platform/Regional.h"

namespace qel {

inline RegionalValues UnitedStates() { return {}; }

inline RegionalValues Germany() {
  RegionalValues values;
  values.NumberDecimal = values.MoneyDecimal = ",";
  values.NumberThousand = values.MoneyThousand = ".";
  values.CurrencySymbol = "DM";
  values.DateSeparator = ".";
  values.ShortDatePattern = "dd.MM.yyyy";
  values.LongDatePattern = "dddd, d. MMMM yyyy";
  values.TimePattern = "HH:mm:ss";
  values.AM = values.PM = "";
  values.ShortDays = {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"};
  values.LongDays = {"Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag", "Sonntag"};
  values.ShortMonths = {"Jan", "Feb", "M\xE4r", "Apr", "Mai", "Jun",
                        "Jul", "Aug", "Sep",    "Okt", "Nov", "Dez"};
  values.LongMonths = {"Januar", "Februar", "M\xE4rz",   "April",   "Mai",      "Juni",
                       "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
  return values;
}

inline RegionalValues International() {
  RegionalValues values;
  values.DateSeparator = "-";
  values.ShortDatePattern = "yyyy-MM-dd";
  values.TimePattern = "HH:mm:ss";
  return values;
}

// One separator for dates and times.
inline RegionalValues Finland() {
  RegionalValues values;
  values.DateSeparator = values.TimeSeparator = ".";
  values.ShortDatePattern = "d.M.yyyy";
  values.TimePattern = "H.mm.ss";
  return values;
}

// The United States before each test and behind it.
class RegionTest : public testing::Test {
 protected:
  RegionTest() { ResetRegion(); }
  ~RegionTest() override { ResetRegion(); }
};

}  // namespace qel
