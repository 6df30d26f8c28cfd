// The reports as files: which kinds there are, and what each holds. All of it is UTF-8.
#pragma once

#include <string>

#include "modemlog/LogFile.h"
#include "reports/ReportExport.h"

namespace qel {

enum class ReportKind { Summary, Details, Compare };
enum class OutputFormat { Text, Csv, Json, Html };

// Of a form that is CSV or JSON.
ExportFormat ExportFormatOf(OutputFormat format);

// A Summary or Details of an analysis of that log. Only Details are explained.
std::string WrittenReport(const ReportOf& of, const LogFile& logFile, ReportKind report, OutputFormat format,
                          const Explaining& explaining = {});

// A connection of the Details in one line, and the line above the first one, if there is any. Not for HTML.
std::string WrittenConnection(const Settings& settings, const DetailLine& line, OutputFormat format);
std::string LineAboveConnections(const Settings& settings, OutputFormat format);

// A comparison of such an analysis.
std::string WrittenReport(const ReportOf& of, const LogFile& logFile, const Comparison& comparison,
                          OutputFormat format);

}  // namespace qel
