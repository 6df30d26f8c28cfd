#include "reports/ReportExport.h"

#include <cstdio>
#include <cstdlib>
#include <utility>
#include <variant>
#include <vector>

#include "analysis/AnalysisResult.h"
#include "analysis/ConnectionNotes.h"
#include "analysis/Period.h"
#include "modemlog/DialledNumber.h"
#include "platform/Files.h"
#include "reports/DetailLines.h"
#include "settings/Settings.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/Region.h"

namespace qel {

namespace {

using Words = std::vector<std::string>;

struct Field;
using Record = std::vector<Field>;
struct NotApplicable {};  // empty in CSV, left out of JSON

struct Field {
  const char* Name;
  std::variant<std::string, long, double, bool, Words, NotApplicable, std::vector<Record>> Value;
};

std::string IsoMoment(Date date, Date time) {
  const ClockTime clock = TimeOf(time);
  char text[16];
  std::snprintf(text, sizeof text, "T%02d:%02d:%02d", clock.hour, clock.minute, clock.second);
  return IsoDate(date) + text;
}

// "12.5", never with an exponent, at most six decimals.
std::string PlainNumber(double number) {
  char text[400];
  std::snprintf(text, sizeof text, "%.6f", number);
  std::string plain = text;
  plain.erase(plain.find_last_not_of('0') + 1);
  if (plain.ends_with('.')) plain.pop_back();
  return plain == "-0" ? "0" : plain;
}

std::string Joined(const Words& words, const char* divider) {
  std::string text;
  for (const auto& word : words) {
    if (&word != words.data()) text += divider;
    text += word;
  }
  return text;
}

std::string CsvText(const std::string& text) {
  if (text.find_first_of("\",\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + '"';
}

std::string RecordText(const Record& record, ExportFormat format);

struct ValueText {
  const bool csv;  // else JSON

  std::string operator()(const std::string& text) const { return csv ? CsvText(text) : JsonText(text); }
  std::string operator()(long number) const { return std::to_string(number); }
  std::string operator()(double number) const { return PlainNumber(number); }
  std::string operator()(bool yes) const { return yes ? "true" : "false"; }
  std::string operator()(const Words& words) const {
    if (csv) return CsvText(Joined(words, " "));
    Words quoted;
    for (const auto& word : words) quoted.push_back(JsonText(word));
    return "[" + Joined(quoted, ", ") + "]";
  }
  std::string operator()(NotApplicable) const { return ""; }
  std::string operator()(const std::vector<Record>& records) const {
    Words objects;
    for (const auto& record : records) objects.push_back("\n      " + RecordText(record, ExportFormat::Json));
    return "[" + Joined(objects, ",") + "]";
  }
};

// A record as one line of CSV or one object of JSON.
std::string RecordText(const Record& record, ExportFormat format) {
  const bool csv = format == ExportFormat::Csv;
  Words fields;
  for (const auto& field : record)
    if (csv || !std::holds_alternative<NotApplicable>(field.Value))
      fields.push_back((csv ? "" : JsonText(field.Name) + ": ") + std::visit(ValueText{csv}, field.Value));
  return csv ? Joined(fields, ",") + "\r\n" : "{" + Joined(fields, ", ") + "}";
}

std::string CsvNames(const Record& record) {
  Words names;
  for (const auto& field : record) names.emplace_back(field.Name);
  return Joined(names, ",") + "\r\n";
}

// A report as text, taking its records one by one. `pattern` is any record: CSV has the names at the top even
// where no record follows. `ahead` is what JSON has before the first list.
class ReportWriter {
 public:
  ReportWriter(const ReportOf& of, ExportFormat format, const char* report, const char* records,
               const Record& pattern, const std::string& ahead = "")
      : format(format) {
    if (format == ExportFormat::Csv) {
      text = CsvNames(pattern);
      return;
    }
    text = std::string("{\n  \"report\": ") + JsonText(report) +
           ",\n  \"from\": " + JsonText(IsoDate(of.period.PeriodStart)) +
           ",\n  \"to\": " + JsonText(IsoDate(of.period.PeriodEnd)) +
           ",\n  \"days\": " + std::to_string(of.period.PeriodDays) +
           ",\n  \"currency\": " + JsonText(ToCleanUtf8(Region.CurrencySymbol)) +
           ",\n  \"errors_found\": " + (of.analysis.LogErrorsFound ? "true" : "false") +
           ",\n  \"complete\": " + (of.analysis.ConnectionsExceeded ? "false" : "true") + ahead;
    Begin(records);
  }

  // The records from here on are another list of JSON.
  void Begin(const char* records) {
    if (format == ExportFormat::Csv) return;
    text += (open ? Close() : "") + ",\n  " + JsonText(records) + ": [";
    open = first = true;
  }

  void Add(const Record& record) {
    if (format == ExportFormat::Json) text += std::string(first ? "" : ",") + "\n    ";
    text += RecordText(record, format);
    first = false;
  }

  std::string Finish() {
    if (format == ExportFormat::Json) text += Close() + "\n}\n";
    return std::move(text);
  }

 private:
  std::string Close() const { return first ? "]" : "\n  ]"; }

  const ExportFormat format;
  std::string text;
  bool open = false, first = true;
};

Record SummaryRecord(const ServiceUse& use) {
  return {{"service", ToCleanUtf8(use.Service)},
          {"number", ToCleanUtf8(use.Number)},
          {"sessions", use.Sessions},
          {"seconds", use.Seconds},
          {"bytes_read", use.BytesRead},
          {"blocks", use.Blocks},
          {"free_seconds", use.FreeSeconds},
          {"dialup_cost", use.DialCost},
          {"service_cost", use.ServiceCost},
          {"data_cost", use.DataCost},
          {"total_cost", use.TotalCost}};
}

Words FlagsOf(const ConnectionRecord& connection) {
  static constexpr const char* ofKinds[] = {"", "", "no-dial", "no-disconnect", "incomplete-tariff"};
  Words flags;
  for (const char* flag :
       {connection.Answered ? "answered" : "", ofKinds[static_cast<std::size_t>(connection.Kind)]})
    if (*flag) flags.emplace_back(flag);
  return flags;
}

Record DetailRecord(const Settings& settings, const DetailLine& line) {
  const ConnectionRecord& c = line.Connection;
  return {{"start", IsoMoment(c.StartDate, c.StartTime)},
          {"end", IsoMoment(c.EndDate, c.EndTime)},
          {"number", ToCleanUtf8(c.Number)},
          {"service", ToCleanUtf8(GetServiceName(settings, c.Number))},
          {"seconds", long{line.Seconds}},
          {"bytes_read", long{c.BytesRead}},
          {"bytes_written", long{c.BytesWritten}},
          {"dialup_cost", line.Costs.DialCostNow},
          {"service_cost", line.Costs.ServiceCostNow},
          {"data_cost", line.Costs.DataCostNow},
          {"total_cost", line.ConnectionCost},
          {"notes", ToCleanUtf8(Trim(TidyNotes(c.Notes)))},
          {"flags", FlagsOf(c)}};
}

// For the names of what a connection has.
struct NoLine {
  ConnectionRecord Connection;
  CallPieces Pieces;
  DetailLine Line{Connection, Pieces};
};

double AsPrinted(double number) { return std::strtod(PlainNumber(number).c_str(), nullptr); }

Field If(bool applies, Field field) {
  if (!applies) field.Value = NotApplicable();
  return field;
}

Record PieceRecord(const ExplainedPiece& explained) {
  static constexpr const char* parts[] = {"dialup", "service", "data"};
  const PricePiece& piece = *explained.Piece;
  const bool hasTimes = piece.From != 0, isOfTime = hasTimes || piece.Seconds != 0;
  return {{"part", parts[static_cast<std::size_t>(explained.Part)]},
          {"cost", explained.Cost},
          If(hasTimes, {"from", IsoMoment(piece.From, piece.From)}),
          If(hasTimes, {"to", IsoMoment(piece.To, piece.To)}),
          If(piece.Tariff, {"tariff", piece.Tariff ? ToCleanUtf8(piece.Tariff->Description) : ""}),
          If(isOfTime, {"seconds", SecondsOf(piece)}),
          If(piece.Units != 0, {"units", long{piece.Units}}),
          If(piece.Bytes != 0, {"bytes", piece.Bytes}),
          If(piece.IsCharged(), {"rate", piece.Rate}),
          {"text", ToCleanUtf8(explained.Text)}};
}

// A piece beside the connection that it is of.
Record PieceOfConnection(const DetailLine& line, const ExplainedPiece& explained) {
  const Record piece = PieceRecord(explained);
  Record record = {{"connection", long{line.Index}}, {"number", ToCleanUtf8(line.Connection.Number)}};
  record.insert(record.end(), piece.begin(), piece.end());
  return record;
}

void AddExplained(ReportWriter& writer, const Settings& settings, const DetailLine& line,
                  ExportFormat format) {
  const auto explained = ExplainPrice(settings, line, AsPrinted);
  if (format == ExportFormat::Csv) {
    for (const auto& piece : explained) writer.Add(PieceOfConnection(line, piece));
    return;
  }
  std::vector<Record> pieces;
  for (const auto& piece : explained) pieces.push_back(PieceRecord(piece));
  Record record = DetailRecord(settings, line);
  record.insert(record.begin(), {"connection", long{line.Index}});
  record.push_back({"pieces", std::move(pieces)});
  writer.Add(record);
}

Record OfferRecord(const ReportOf& of, const ServiceComparison& service, const OfferCost& offer) {
  return {{"offer", ToCleanUtf8(ServiceNameOf(of.settings.Services[offer.Service]))},
          {"cost", offer.Cost},
          {"difference_a_month", AMonth(of.period, offer.Cost - service.Cost)},
          {"cheapest", offer.Cheapest},
          {"unpriced", long{offer.Unpriced}}};
}

std::string NameOf(const ReportOf& of, const ServiceComparison& service) {
  return ToCleanUtf8(ServiceNameOf(of.settings.Services[service.Service]));
}

void AddComparedAsJson(ReportWriter& writer, const ReportOf& of, const Comparison& comparison) {
  for (const auto& service : comparison.Services) {
    std::vector<Record> offers;
    for (const auto& offer : service.Offers) offers.push_back(OfferRecord(of, service, offer));
    writer.Add({{"service", NameOf(of, service)},
                {"sessions", service.Sessions},
                {"cost", service.Cost},
                {"offers", std::move(offers)}});
  }
  if (!comparison.Others.empty()) writer.Begin("settings");
  for (const auto& other : comparison.Others) {
    std::vector<Record> services;
    for (const auto& use : other.Services)
      services.push_back({{"service", ToCleanUtf8(use.Service)}, {"cost", use.TotalCost}});
    writer.Add({{"file", ShownPath(other.File)}, {"cost", other.Cost}, {"services", std::move(services)}});
  }
}

// What the calls of a service cost by an offer, or under the settings of a file.
Record ComparedRecord(const std::string& file, const std::string& service, long sessions, Record offer) {
  Record record = {{"file", file}, {"service", service}, {"sessions", sessions}};
  record.insert(record.begin() + 2, offer.front());
  record.insert(record.end(), offer.begin() + 1, offer.end());
  return record;
}

Record OfOtherSettings(const ReportOf& of, const Comparison& comparison, const ServiceUse& use) {
  const ServiceUse* own = OwnUse(comparison, use.Service);
  const double before = own ? own->TotalCost : 0;
  return {{"offer", NotApplicable()},
          {"cost", use.TotalCost},
          If(own != nullptr, {"difference_a_month", AMonth(of.period, use.TotalCost - before)}),
          {"cheapest", NotApplicable()},
          {"unpriced", NotApplicable()}};
}

}  // namespace

std::string JsonText(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      quoted += '\\';
      quoted += c;
    } else if (static_cast<unsigned char>(c) < 32) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      quoted += escape;
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

std::string ExportSummary(const ReportOf& of, ExportFormat format) {
  UseByService use(of.settings);
  ForEachConnection(of, [&use](const DetailLine& line) { use.Add(line); });
  ReportWriter writer(of, format, "summary", "services", SummaryRecord(ServiceUse()));
  for (const auto& service : use.Services()) writer.Add(SummaryRecord(service));
  return writer.Finish();
}

std::string ExportStatistics(const LogFile& logFile, const LogFindings& findings, ExportFormat format) {
  const Record record = {{"path", ShownPath(logFile.CurrentLogPath)},
                         {"length", static_cast<long>(FileLength(logFile.CurrentLogPath))},
                         {"entries", double{findings.LogEntries}},
                         {"first_entry", IsoDate(findings.FirstEntryDate)},
                         {"last_entry", IsoDate(findings.LastEntryDate)},
                         {"span_days", long{DaysBetween(findings.FirstEntryDate, findings.LastEntryDate)}}};
  const std::string text = RecordText(record, format);
  return format == ExportFormat::Csv ? CsvNames(record) + text : text + "\n";
}

std::string ExportDetails(const ReportOf& of, ExportFormat format, const Explaining& explaining) {
  const NoLine none;
  const PricePiece noPiece{};
  const bool byPiece = explaining.Wanted && format == ExportFormat::Csv;
  ReportWriter writer(of, format, "details", "connections",
                      byPiece ? PieceOfConnection(none.Line, {PricePart::Dialup, &noPiece, 0, ""})
                              : DetailRecord(of.settings, none.Line));
  ForEachConnection(of, [&](const DetailLine& line) {
    if (!explaining.Includes(line)) return;
    if (explaining.Wanted)
      AddExplained(writer, of.settings, line, format);
    else
      writer.Add(DetailRecord(of.settings, line));
  });
  return writer.Finish();
}

std::string ExportedConnection(const Settings& settings, const DetailLine& line, ExportFormat format) {
  return RecordText(DetailRecord(settings, line), format) + (format == ExportFormat::Json ? "\n" : "");
}

std::string ConnectionNames(const Settings& settings, ExportFormat format) {
  return format == ExportFormat::Csv ? CsvNames(DetailRecord(settings, NoLine().Line)) : "";
}

std::string ExportComparison(const ReportOf& of, ExportFormat format, const Comparison& comparison) {
  ReportWriter writer(of, format, "compare", "services", ComparedRecord("", "", 0, OfferRecord(of, {}, {})),
                      ",\n  \"cost\": " + PlainNumber(comparison.Own.Cost));
  if (format == ExportFormat::Json) {
    AddComparedAsJson(writer, of, comparison);
    return writer.Finish();
  }
  for (const auto& service : comparison.Services)
    for (const auto& offer : service.Offers)
      writer.Add(ComparedRecord("", NameOf(of, service), service.Sessions, OfferRecord(of, service, offer)));
  for (const auto& other : comparison.Others)
    for (const auto& use : other.Services)
      writer.Add(ComparedRecord(ShownPath(other.File), ToCleanUtf8(use.Service), use.Sessions,
                                OfOtherSettings(of, comparison, use)));
  return writer.Finish();
}

}  // namespace qel
