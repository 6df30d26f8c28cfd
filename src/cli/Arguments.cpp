#include "cli/Arguments.h"

#include <algorithm>

namespace qel {

namespace {

using Take = void (*)(Arguments&, const std::string& value);

struct OptionRow {
  const char* name;
  const char* value;  // what the usage calls it, "[N]" if it may be left out; nullptr for none
  const char* explanation;
  Take take;
  enum Use : unsigned { Alone = 0, OfReport = 1, OfCheck = 2, OfFollowing = 4, OfAll = 7 };
  unsigned use = OfReport;  // what it may stand beside
};

bool AllDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

Date IsoDateOf(const std::string& text) {
  const bool shaped = text.size() == 10 && text[4] == '-' && text[7] == '-' && AllDigits(text.substr(0, 4)) &&
                      AllDigits(text.substr(5, 2)) && AllDigits(text.substr(8));
  if (shaped) {
    const int year = std::stoi(text.substr(0, 4)), month = std::stoi(text.substr(5, 2)),
              day = std::stoi(text.substr(8));
    if (year >= 100 && month >= 1 && month <= 12 && day >= 1 && day <= DaysInMonth(year, month))
      return DateSerial(year, month, day);
  }
  throw ArgumentError("'" + text + "' is no date; write it as YYYY-MM-DD");
}

std::optional<int> ConnectionNumberOf(const std::string& text) {
  constexpr std::size_t mostDigits = 9;
  if (text.empty()) return std::nullopt;
  if (!AllDigits(text) || text.size() > mostDigits)
    throw ArgumentError("'" + text + "' is no number of a connection");
  return std::stoi(text);
}

template <typename Value>
struct Choice {
  const char* name;
  Value value;
};

template <typename Value, std::size_t N>
Value Choose(const Choice<Value> (&choices)[N], const char* option, const std::string& text) {
  std::string names;
  for (const auto& choice : choices) {
    if (text == choice.name) return choice.value;
    names += (names.empty() ? "" : ", ") + std::string(choice.name);
  }
  throw ArgumentError(std::string(option) + " is one of " + names + ", not '" + text + "'");
}

const Choice<ReportKind> Reports[] = {
    {"summary", ReportKind::Summary}, {"details", ReportKind::Details}, {"compare", ReportKind::Compare}};
const Choice<OutputFormat> Formats[] = {{"text", OutputFormat::Text},
                                        {"csv", OutputFormat::Csv},
                                        {"json", OutputFormat::Json},
                                        {"html", OutputFormat::Html}};

const OptionRow Rows[] = {
    {"--log", "FILE", "the modem log to read (default: that of the settings)",
     [](Arguments& a, const std::string& value) { a.log = value; }, OptionRow::OfAll},
    {"--settings", "FILE.reg", "services, tariffs and options; never written to",
     [](Arguments& a, const std::string& value) { a.settings = value; }, OptionRow::OfAll},
    {"--from", "YYYY-MM-DD", "first day of the report (default: the log's first)",
     [](Arguments& a, const std::string& value) { a.from = IsoDateOf(value); },
     OptionRow::OfReport | OptionRow::OfFollowing},
    {"--to", "YYYY-MM-DD", "last day of the report (default: the log's last)",
     [](Arguments& a, const std::string& value) { a.to = IsoDateOf(value); }},
    {"--report", "summary|details|compare", "services (default), connections, or costs elsewhere",
     [](Arguments& a, const std::string& value) { a.report = Choose(Reports, "--report", value); },
     OptionRow::OfReport | OptionRow::OfFollowing},
    {"--explain", "[N]", "the price of each connection of the details, or of number N",
     [](Arguments& a, const std::string& value) {
       a.explain = {true, ConnectionNumberOf(value)};
     }},
    {"--compare", "FILE.reg", "prices the log under these settings too; may be given again",
     [](Arguments& a, const std::string& value) { a.compare.push_back(value); }},
    {"--format", "text|csv|json|html", "how it is written, in UTF-8 (default: text)",
     [](Arguments& a, const std::string& value) { a.format = Choose(Formats, "--format", value); },
     OptionRow::OfAll},
    {"--output", "FILE", "where it is written (default: standard output)",
     [](Arguments& a, const std::string& value) { a.output = value; },
     OptionRow::OfReport | OptionRow::OfCheck},
    {"--stats", nullptr, "print the log's statistics in place of a report",
     [](Arguments& a, const std::string&) { a.stats = true; }},
    {"--check", nullptr, "print what is doubtful in the settings in place of a report",
     [](Arguments& a, const std::string&) { a.check = true; }, OptionRow::OfCheck},
    {"--follow", nullptr, "print a line as each call closes, until it is interrupted",
     [](Arguments& a, const std::string&) { a.follow = true; }, OptionRow::OfFollowing},
    {"--import", "FILE.reg", "take exported settings into your own, and nothing else",
     [](Arguments& a, const std::string& value) { a.import = value; }, OptionRow::Alone},
    {"--help", nullptr, "print this help, as -h does",
     [](Arguments& a, const std::string&) { a.help = true; }, OptionRow::Alone},
    {"--version", nullptr, "print the version", [](Arguments& a, const std::string&) { a.version = true; },
     OptionRow::Alone},
};

const OptionRow& RowOf(const std::string& name) {
  for (const auto& row : Rows)
    if (row.name == (name == "-h" ? "--help" : name)) return row;
  if (name.starts_with("-")) throw ArgumentError("unknown option '" + name + "'");
  throw ArgumentError("unexpected argument '" + name + "'; a log is named with --log");
}

std::string Shown(const OptionRow& row) {
  return row.value ? std::string(row.name) + " " + row.value : std::string(row.name);
}

}  // namespace

Arguments ParseArguments(const std::vector<std::string>& words) {
  Arguments arguments;
  std::vector<const OptionRow*> given;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const auto equals = words[i].starts_with("--") ? words[i].find('=') : std::string::npos;
    const OptionRow& row = RowOf(words[i].substr(0, equals));
    const bool mayLackValue = row.value && *row.value == '[';
    std::string value;
    if (equals != std::string::npos) {
      if (!row.value) throw ArgumentError(std::string(row.name) + " takes no value");
      value = words[i].substr(equals + 1);
    } else if (mayLackValue) {
      if (i + 1 < words.size() && AllDigits(words[i + 1])) value = words[++i];
    } else if (row.value) {
      if (++i == words.size()) throw ArgumentError(Shown(row) + ": the value is missing");
      value = words[i];
    }
    const bool lacksValue = mayLackValue && equals == std::string::npos;
    if (row.value && value.empty() && !lacksValue) throw ArgumentError(Shown(row) + ": the value is empty");
    row.take(arguments, value);
    given.push_back(&row);
  }
  const auto refuse = [&given](const char* option, unsigned use) {
    for (const OptionRow* row : given)
      if (row->use != OptionRow::Alone && !(row->use & use))
        throw ArgumentError(option + (" and takes no " + std::string(row->name)));
  };
  if (arguments.import) refuse("--import makes no report", OptionRow::Alone);
  if (arguments.check) refuse("--check makes no report", OptionRow::OfCheck);
  if (arguments.follow) refuse("--follow prints calls as they close", OptionRow::OfFollowing);
  if (arguments.follow && arguments.report.value_or(ReportKind::Details) != ReportKind::Details)
    throw ArgumentError("--follow prints calls as they close, of --report details alone");
  if (arguments.follow && arguments.format == OutputFormat::Html)
    throw ArgumentError("--follow writes text, csv or json");
  if (arguments.check && (arguments.format == OutputFormat::Csv || arguments.format == OutputFormat::Html))
    throw ArgumentError("--check writes text or json");
  if (!arguments.compare.empty() &&
      (arguments.stats || arguments.report.value_or(ReportKind::Compare) != ReportKind::Compare))
    throw ArgumentError("--compare makes a report of its own and goes with --report compare alone");
  if (!arguments.report)
    arguments.report = arguments.compare.empty() ? ReportKind::Summary : ReportKind::Compare;
  if (arguments.explain.Wanted && arguments.report != ReportKind::Details)
    throw ArgumentError("--explain tells of connections and goes with --report details");
  if (arguments.from && arguments.to && *arguments.from > *arguments.to)
    throw ArgumentError("--from is a later day than --to");
  return arguments;
}

std::string UsageText() {
  constexpr std::size_t width = 80;
  const std::string margin(17, ' ');
  std::string text, line = "usage: qelreport";
  for (const auto& row : Rows) {
    const std::string word = " [" + Shown(row) + "]";
    if (line.size() + word.size() > width) {
      text += line + "\n";
      line = margin.substr(1);
    }
    line += word;
  }
  return text + line + "\n";
}

std::string HelpText() {
  std::string text = UsageText() +
                     "\nRebuilds the dial-up connections of a modem log, prices them by your services\n"
                     "and tariffs, and prints the report of a period.\n\n";
  std::size_t width = 0;
  for (const auto& row : Rows) width = std::max(width, Shown(row).size());
  for (const auto& row : Rows) {
    const std::string shown = Shown(row);
    text += "  " + shown + std::string(width - shown.size() + 2, ' ') + row.explanation + "\n";
  }
  return text +
         "\nExit status: 0 a whole report, 1 no report, 2 wrong arguments, 3 a report that\n"
         "is incomplete because the connection limit was reached. Of an import: 0 taken,\n"
         "1 not taken. Of a check: 0 nothing found, 1 something found or no check.\n"
         "Of following: 0 interrupted, 1 nothing to follow, 3 the limit was reached.\n";
}

}  // namespace qel
