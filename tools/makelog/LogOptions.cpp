#include "makelog/LogOptions.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string_view>

namespace qel {

const char* const UsageText =
    R"(Usage: makelog (--days N | --size BYTES) [OPTION]...
Writes a modem log as a modem driver would have, the same for the same options on every machine.

  --days N             write N days
  --size BYTES         write until the log has this size; K, M and G stand for powers of 1024
  --start YYYY-MM-DD   first day (1998-10-05)
  --seed N             another number makes another log (1)
  --calls-per-day X    0.001 to 50 calls a day on average (2)
  --chatter LINES      lines a call that mean nothing, 0 to 100000 (12)
  --numbers A,B,...    numbers dialled; one named twice is dialled twice as often (5550142)
  --output FILE        write to FILE instead of standard output
  --help               show this text
)";

namespace {

[[noreturn]] void Refuse(const std::string& value, const std::string& wanted) {
  throw std::invalid_argument("\"" + value + "\" is not " + wanted);
}

// The digits of the whole text as a number; false where it holds anything else or is out of range.
template <typename Number>
bool ReadNumber(std::string_view text, Number least, Number most, Number& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end && number >= least && number <= most;
}

int WholeNumber(const std::string& value, int least, int most) {
  int number = 0;
  if (!ReadNumber(value, least, most, number)) {
    Refuse(value, "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
  }
  return number;
}

void SetSeed(LogOptions& options, const std::string& value) {
  if (!ReadNumber<std::uint64_t>(value, 0, UINT64_MAX, options.Seed))
    Refuse(value, "a whole number below 2^64");
}

void SetSize(LogOptions& options, const std::string& value) {
  constexpr std::string_view Suffixes = "KMG";
  std::string_view digits = value;
  const auto suffix = digits.empty() ? std::string_view::npos : Suffixes.find(digits.back());
  int shift = 0;
  if (suffix != std::string_view::npos) {
    shift = 10 * (static_cast<int>(suffix) + 1);
    digits.remove_suffix(1);
  }
  std::int64_t number = 0;
  constexpr std::int64_t Most = std::int64_t{1} << 40;
  if (!ReadNumber<std::int64_t>(digits, 1, Most >> shift, number)) Refuse(value, "a size from 1 to 1024G");
  options.Size = number << shift;
}

void SetStart(LogOptions& options, const std::string& value) {
  int year = 0;
  unsigned month = 0, day = 0;
  const bool read = value.size() == 10 && value[4] == '-' && value[7] == '-' &&
                    ReadNumber(std::string_view(value).substr(0, 4), 1900, 9999, year) &&
                    ReadNumber(std::string_view(value).substr(5, 2), 1u, 12u, month) &&
                    ReadNumber(std::string_view(value).substr(8, 2), 1u, 31u, day);
  options.Start = {std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
  if (!read || !options.Start.ok()) Refuse(value, "a day from 1900-01-01 to 9999-12-31");
}

void SetCallsPerDay(LogOptions& options, const std::string& value) {
  const std::size_t point = std::min(value.find('.'), value.size());
  std::string thousandths = value.substr(std::min(point + 1, value.size()));
  const bool shortEnough = thousandths.size() <= 3;
  thousandths.resize(3, '0');
  int whole = 0, part = 0;
  if (!shortEnough || !ReadNumber(std::string_view(value).substr(0, point), 0, 50, whole) ||
      !ReadNumber(std::string_view(thousandths), 0, 999, part) || whole * 1000 + part < 1 ||
      whole * 1000 + part > 50000) {
    Refuse(value, "a number from 0.001 to 50 with at most three decimals");
  }
  options.CallsPerThousandDays = whole * 1000 + part;
}

void SetNumbers(LogOptions& options, const std::string& value) {
  options.Numbers.clear();
  for (std::size_t begin = 0; begin <= value.size();) {
    const std::size_t end = std::min(value.find(',', begin), value.size());
    const std::string number = value.substr(begin, end - begin);
    if (number.empty() || number.find_first_not_of("0123456789*#!-") != std::string::npos) {
      Refuse(number, "a telephone number");
    }
    options.Numbers.push_back(number);
    begin = end + 1;
  }
}

struct Option {
  std::string_view Name;
  void (*Set)(LogOptions& options, const std::string& value);
};

constexpr Option Options[] = {
    {"--days", [](LogOptions& o, const std::string& v) { o.Days = WholeNumber(v, 1, 1000000); }},
    {"--size", SetSize},
    {"--start", SetStart},
    {"--seed", SetSeed},
    {"--calls-per-day", SetCallsPerDay},
    {"--chatter", [](LogOptions& o, const std::string& v) { o.Chatter = WholeNumber(v, 0, 100000); }},
    {"--numbers", SetNumbers},
    {"--output", [](LogOptions& o, const std::string& v) { o.Output = v; }},
};

}  // namespace

LogOptions ParseOptions(const std::vector<std::string>& arguments) {
  LogOptions options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& name = arguments[i];
    if (name == "--help") {
      options.Help = true;
      return options;
    }
    const auto* option = std::ranges::find(Options, name, &Option::Name);
    if (option == std::end(Options)) throw std::invalid_argument("unknown option \"" + name + "\"");
    if (++i == arguments.size()) throw std::invalid_argument(name + " lacks its value");
    try {
      option->Set(options, arguments[i]);
    } catch (const std::invalid_argument& error) {
      throw std::invalid_argument(name + ": " + error.what());
    }
  }
  if ((options.Days == 0) == (options.Size == 0)) throw std::invalid_argument("give either --days or --size");
  return options;
}

}  // namespace qel
