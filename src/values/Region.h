// The regional values: how the user writes dates, times, numbers and money.
#pragma once

#include <array>
#include <string>

#include "values/CheckedInteger.h"

namespace qel {

// Text in Windows-1252. Defaults are those of the United States.
struct RegionalValues {
  std::string Country = "United States";
  std::string CurrencySymbol = "$";
  Int16 SymbolPrecedes = 1;  // 1: the symbol stands before the amount
  Int16 SymbolSpaced = 0;    // blanks between symbol and amount
  Int16 CurrencyDigits = 2;
  std::string MoneyDecimal = ".";
  std::string MoneyThousand = ",";
  std::string NumberDecimal = ".";
  std::string NumberThousand = ",";
  std::string DateSeparator = "/";
  std::string TimeSeparator = ":";
  std::string ShortDatePattern = "M/d/yyyy";
  std::string LongDatePattern = "dddd, MMMM dd, yyyy";
  std::string TimePattern = "h:mm:ss tt";
  std::string AM = "AM";
  std::string PM = "PM";
  std::array<std::string, 7> ShortDays = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
  std::array<std::string, 7> LongDays = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                         "Friday", "Saturday", "Sunday"};
  std::array<std::string, 12> ShortMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::array<std::string, 12> LongMonths = {"January",   "February", "March",    "April",
                                            "May",       "June",     "July",     "August",
                                            "September", "October",  "November", "December"};
};

// The defaults: those of English where nobody changes them.
inline const RegionalValues English;

// The values that every conversion and format mask follows. Set once at the start.
inline RegionalValues Region;

}  // namespace qel
