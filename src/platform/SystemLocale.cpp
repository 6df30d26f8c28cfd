#include "platform/SystemLocale.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <langinfo.h>
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is POSIX's, not the standard library's
#include <utility>

#include "values/CodePage.h"
#include "values/DatePattern.h"
#include "values/Region.h"

namespace qel {

namespace {

// The locale that the environment names for a category; empty for the C locale, which says nothing.
std::string EnvironmentLocale(const char* category) {
  for (const char* variable : {"LC_ALL", category, "LANG"}) {
    const char* name = std::getenv(variable);
    if (!name || !*name) continue;
    const std::string_view locale = name;
    const bool silent = locale == "C" || locale == "POSIX" || locale.starts_with("C.");
    return silent ? "" : name;
  }
  return "";
}

// One category of the environment's locale, with the character set of its texts.
class LocaleCategory {
 public:
  LocaleCategory(const char* variable, int mask) {
    const std::string name = EnvironmentLocale(variable);
    if (!name.empty()) locale = newlocale(mask | LC_CTYPE_MASK, name.c_str(), locale_t{});
  }
  ~LocaleCategory() {
    if (locale) freelocale(locale);
  }
  LocaleCategory(const LocaleCategory&) = delete;
  LocaleCategory& operator=(const LocaleCategory&) = delete;

  explicit operator bool() const { return locale != locale_t{}; }
  locale_t Handle() const { return locale; }
  std::string_view Item(nl_item item) const { return nl_langinfo_l(item, locale); }
  std::optional<std::string> Text(std::string_view text) const { return FromCharset(text, Item(CODESET)); }
  std::optional<std::string> ItemText(nl_item item) const { return Text(Item(item)); }

 private:
  locale_t locale{};
};

// localeconv knows only the calling thread's locale: that is another one for as long as this lives.
class ThreadLocale {
 public:
  explicit ThreadLocale(locale_t locale) : before(uselocale(locale)) {}
  ~ThreadLocale() { uselocale(before); }
  ThreadLocale(const ThreadLocale&) = delete;
  ThreadLocale& operator=(const ThreadLocale&) = delete;

 private:
  locale_t before;
};

void TakeText(std::string& value, const std::optional<std::string>& text) {
  if (text) value = *text;
}

void TakeFilledText(std::string& value, const std::optional<std::string>& text) {
  if (text && !text->empty()) value = *text;
}

template <std::size_t Count>
using Names = std::array<std::string, Count>;

// Nothing where a name is missing or Windows-1252 cannot hold it.
template <std::size_t Count>
std::optional<Names<Count>> NamesOf(const LocaleCategory& locale, const std::array<nl_item, Count>& items) {
  Names<Count> names;
  for (std::size_t i = 0; i < Count; ++i) {
    TakeText(names[i], locale.ItemText(items[i]));
    if (names[i].empty()) return std::nullopt;
  }
  return names;
}

constexpr std::array<nl_item, 7> ShortDayItems = {ABDAY_2, ABDAY_3, ABDAY_4, ABDAY_5,
                                                  ABDAY_6, ABDAY_7, ABDAY_1};
constexpr std::array<nl_item, 7> LongDayItems = {DAY_2, DAY_3, DAY_4, DAY_5, DAY_6, DAY_7, DAY_1};
constexpr std::array<nl_item, 12> ShortMonthItems = {ABMON_1, ABMON_2, ABMON_3, ABMON_4,  ABMON_5,  ABMON_6,
                                                     ABMON_7, ABMON_8, ABMON_9, ABMON_10, ABMON_11, ABMON_12};
constexpr std::array<nl_item, 12> LongMonthItems = {MON_1, MON_2, MON_3, MON_4,  MON_5,  MON_6,
                                                    MON_7, MON_8, MON_9, MON_10, MON_11, MON_12};

// All names come together or none does: a date in two languages is no good to anyone.
void TakeNames(RegionalValues& values, const LocaleCategory& locale) {
  auto shortDays = NamesOf(locale, ShortDayItems), longDays = NamesOf(locale, LongDayItems);
  auto shortMonths = NamesOf(locale, ShortMonthItems), longMonths = NamesOf(locale, LongMonthItems);
  if (!shortDays || !longDays || !shortMonths || !longMonths) return;
  values.ShortDays = std::move(*shortDays);
  values.LongDays = std::move(*longDays);
  values.ShortMonths = std::move(*shortMonths);
  values.LongMonths = std::move(*longMonths);
}

void TakeDates(RegionalValues& values, const LocaleCategory& locale) {
  TakeNames(values, locale);
  TakeText(values.AM, locale.ItemText(AM_STR));
  TakeText(values.PM, locale.ItemText(PM_STR));
  if (const auto format = locale.ItemText(T_FMT))
    TakeFilledText(values.TimePattern, PatternOfStrftime(*format, locale.Item(T_FMT_AMPM)));
  if (const auto format = locale.ItemText(D_FMT)) {
    // Some write it with names, which no field for a date could take.
    if (const auto pattern = PatternOfStrftime(*format))
      TakeFilledText(values.ShortDatePattern, InNumbers(*pattern));
    // Locales have no long date of their own. Most of those that do not put the month first write it this
    // way.
    if (!values.ShortDatePattern.starts_with('M')) values.LongDatePattern = "dddd, d MMMM yyyy";
  }
}

// In the locale's own language, or by its two letters where Windows-1252 cannot hold that.
void TakeCountry(RegionalValues& values, const LocaleCategory& locale) {
#ifdef __GLIBC__
  TakeFilledText(values.Country, locale.ItemText(_NL_ADDRESS_COUNTRY_AB2));
  TakeFilledText(values.Country, locale.ItemText(_NL_ADDRESS_COUNTRY_NAME));
#else
  static_cast<void>(values), static_cast<void>(locale);
#endif
}

void TakeMoney(RegionalValues& values, const LocaleCategory& locale) {
  const ThreadLocale use(locale.Handle());
  const lconv& money = *localeconv();
  auto symbol = locale.Text(money.currency_symbol);
  // A symbol beyond Windows-1252 gives way to the three letters of the currency, which end in a blank.
  if (!symbol) symbol = std::string(money.int_curr_symbol).substr(0, 3);
  TakeFilledText(values.CurrencySymbol, symbol);
  TakeFilledText(values.MoneyDecimal, locale.Text(money.mon_decimal_point));
  TakeText(values.MoneyThousand, locale.Text(money.mon_thousands_sep));
  if (money.p_cs_precedes != CHAR_MAX) values.SymbolPrecedes = money.p_cs_precedes;
  if (money.p_sep_by_space != CHAR_MAX) values.SymbolSpaced = money.p_sep_by_space == 1 ? 1 : 0;
  if (money.frac_digits != CHAR_MAX) values.CurrencyDigits = money.frac_digits;
}

struct Conversion {
  char letter;
  std::string_view pattern;
};

constexpr Conversion Conversions[] = {
    {'A', "dddd"}, {'B', "MMMM"}, {'D', "MM/dd/yy"}, {'F', "yyyy-MM-dd"}, {'H', "HH"},   {'I', "hh"},
    {'M', "mm"},   {'P', "tt"},   {'R', "HH:mm"},    {'S', "ss"},         {'Y', "yyyy"}, {'a', "ddd"},
    {'b', "MMM"},  {'d', "dd"},   {'e', "d"},        {'h', "MMM"},        {'k', "H"},    {'l', "h"},
    {'m', "MM"},   {'p', "tt"},   {'T', "HH:mm:ss"}, {'y', "yy"},         {'n', " "},    {'t', " "},
    {'%', "%"},    {'Z', ""},     {'z', ""},
};

// A character of a format that stands for itself: letters are quoted, or they would be places of the pattern.
void AppendLiteral(std::string& pattern, char c, bool& quoted) {
  const bool letter = std::isalpha(static_cast<unsigned char>(c)) != 0;
  if (letter != quoted && c != '\'') {
    pattern += '\'';
    quoted = letter;
  }
  if (c == '\'')
    pattern += quoted ? "''" : "''''";
  else
    pattern += c;
}

}  // namespace

std::optional<std::string> PatternOfStrftime(std::string_view format, std::string_view halfDayTime) {
  std::string pattern;
  bool quoted = false;
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format[i] != '%') {
      AppendLiteral(pattern, format[i], quoted);
      continue;
    }
    if (std::exchange(quoted, false)) pattern += '\'';
    bool unpadded = false;
    // Flags and the marks of alternative digits and eras
    for (++i; i < format.size() && std::string_view("-_0^#EO").find(format[i]) != std::string_view::npos; ++i)
      unpadded |= format[i] == '-' || format[i] == '_';
    if (i == format.size()) return std::nullopt;
    if (format[i] == 'r' && !halfDayTime.empty()) {
      const auto time = PatternOfStrftime(halfDayTime, "");
      if (!time) return std::nullopt;
      pattern += *time;
      continue;
    }
    const auto* found = std::find_if(std::begin(Conversions), std::end(Conversions),
                                     [&](const Conversion& c) { return c.letter == format[i]; });
    if (found == std::end(Conversions)) return std::nullopt;
    pattern += unpadded && found->pattern.size() == 2 ? found->pattern.substr(1) : found->pattern;
  }
  if (quoted) pattern += '\'';
  return std::string(Trim(pattern));
}

std::optional<std::string> FromCharset(std::string_view text, std::string_view charset) {
  if (EqualNoCase(charset, "UTF-8")) {
    // Many locales divide thousands with the narrow no-break space, which Windows-1252 has only at full
    // width.
    std::string wide(text);
    for (std::size_t at; (at = wide.find("\u202F")) != std::string::npos;) wide.replace(at, 3, "\u00A0");
    return FromUtf8(wide);
  }
  const bool ascii =
      std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (ascii || EqualNoCase(charset, "ISO-8859-1")) return std::string(text);
  if (!EqualNoCase(charset, "ISO-8859-15")) return std::nullopt;
  std::string western(text);
  std::replace(western.begin(), western.end(), '\xA4', '\x80');  // the euro sign
  return western;
}

void TakeSystemLocale(RegionalValues& values) {
  if (const LocaleCategory locale("LC_TIME", LC_TIME_MASK); locale) TakeDates(values, locale);
  if (const LocaleCategory locale("LC_ADDRESS", LC_ALL_MASK); locale) TakeCountry(values, locale);
  if (const LocaleCategory locale("LC_NUMERIC", LC_NUMERIC_MASK); locale) {
    TakeFilledText(values.NumberDecimal, locale.ItemText(RADIXCHAR));
    TakeText(values.NumberThousand, locale.ItemText(THOUSEP));
  }
  if (const LocaleCategory locale("LC_MONETARY", LC_MONETARY_MASK); locale) TakeMoney(values, locale);
}

}  // namespace qel
