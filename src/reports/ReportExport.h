// The reports' figures for other programs: CSV by RFC 4180 and JSON by RFC 8259, with plain numbers and ISO
// dates, in UTF-8. Both reports are made from the connections, so that their figures agree with each other.
//
// Money is given to the sixth decimal. Answered calls cost nothing in all their parts.
#pragma once

#include <string>

#include "modemlog/LogFile.h"
#include "reports/ComparisonReport.h"
#include "reports/PriceExplained.h"
#include "reports/ReportOf.h"

namespace qel {

enum class ExportFormat { Csv, Json };

// Text in UTF-8 as JSON writes it, in quotation marks.
std::string JsonText(const std::string& text);

// One record for each service that had a connection: name, number, sessions, time, bytes, blocks, costs.
std::string ExportSummary(const ReportOf& of, ExportFormat format);

// One record for each connection: start, end, number, service, seconds inside the period, bytes read and
// written, dial-up, service, data and total cost, notes, and flags: "answered", "no-dial", "no-disconnect",
// "incomplete-tariff", divided by blanks in CSV.
//
// Explained, a connection has its number too and the pieces of its price: part ("dialup", "service" or
// "data"), cost, and what applies of times, tariff, seconds, units, bytes, rate, and a text. As printed they
// sum to each part of the cost. In CSV a record is a piece, not a connection.
std::string ExportDetails(const ReportOf& of, ExportFormat format, const Explaining& explaining = {});

// The record of one connection on a line of its own, for a file that grows by the line; and the line above
// the first of them, which CSV alone has.
std::string ExportedConnection(const Settings& settings, const DetailLine& line, ExportFormat format);
std::string ConnectionNames(const Settings& settings, ExportFormat format);

// One record for each service that was called and each service whose costs it is compared with: offer,
// sessions, cost, difference a month, whether it is the cheapest, and the calls with a time that no tariff of
// the offer holds. In CSV the services under each of the other settings follow, with the name of their file;
// in JSON these are a list of their own, where there are any.
std::string ExportComparison(const ReportOf& of, ExportFormat format, const Comparison& comparison);

// One record of a log's statistics: path, length, entries, first and last date, span in days.
std::string ExportStatistics(const LogFile& logFile, const LogFindings& findings, ExportFormat format);

}  // namespace qel
