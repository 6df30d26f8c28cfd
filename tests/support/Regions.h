// Regions that write dates, times and numbers in different ways.
#pragma once

#include <gtest/gtest.h>

#include "values/Region.h"

namespace qel {

inline RegionalValues UnitedStates() { return {}; }

inline RegionalValues Germany() {
  return {
      .CurrencySymbol = "DM",
      .MoneyDecimal = ",",
      .MoneyThousand = ".",
      .NumberDecimal = ",",
      .NumberThousand = ".",
      .DateSeparator = ".",
      .ShortDatePattern = "dd.MM.yyyy",
      .LongDatePattern = "dddd, d. MMMM yyyy",
      .TimePattern = "HH:mm:ss",
      .AM = "",
      .PM = "",
      .ShortDays = {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"},
      .LongDays = {"Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag", "Sonntag"},
      .ShortMonths = {"Jan", "Feb", "M\xE4r", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"},
      .LongMonths = {"Januar", "Februar", "M\xE4rz", "April", "Mai", "Juni", "Juli", "August", "September",
                     "Oktober", "November", "Dezember"},
  };
}

inline RegionalValues International() {
  return {.DateSeparator = "-", .ShortDatePattern = "yyyy-MM-dd", .TimePattern = "HH:mm:ss"};
}

// One separator for dates and times.
inline RegionalValues Finland() {
  return {
      .DateSeparator = ".", .TimeSeparator = ".", .ShortDatePattern = "d.M.yyyy", .TimePattern = "H.mm.ss"};
}

// The United States before each test and behind it.
class RegionTest : public testing::Test {
 protected:
  RegionTest() { Region = {}; }
  ~RegionTest() override { Region = {}; }
};

}  // namespace qel
