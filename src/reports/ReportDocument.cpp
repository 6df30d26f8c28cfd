#include "reports/ReportDocument.h"

#include <algorithm>
#include <utility>

#include "analysis/AnalysisResult.h"
#include "analysis/Period.h"
#include "settings/Settings.h"
#include "values/DateFormat.h"
#include "values/Region.h"

namespace qel {

void ReportRow::SetSubItem(int number, std::string text) {
  const auto index = static_cast<std::size_t>(number - 1);
  if (SubItems.size() <= index) SubItems.resize(index + 1);
  SubItems[index] = std::move(text);
}

void ReportDocument::FillLabels(const ReportOf& of, const std::string& title) {
  RepTitle = "QELMARK - " + title + " Report";
  TitleLength = static_cast<int>(RepTitle.size());
  RepBegin = FormatDate(of.period.PeriodStart, "long date");
  RepEnd = FormatDate(of.period.PeriodEnd, "long date");
  RepPeriod = PeriodText(of.period);
  fraWarning = ErrorsAreShown(of);
}

ReportRow& ReportDocument::AddRow(std::string text) {
  Rows.push_back({.Text = std::move(text), .SubItems = {}});
  return Rows.back();
}

void ReportDocument::AddDottedRow() {
  ReportRow& row = AddRow();
  row.SubItems.assign(Columns.size() - 1, std::string(100, '.'));
  row.IsRule = true;
}

bool ErrorsAreShown(const ReportOf& of) { return of.analysis.LogErrorsFound && of.settings.ShowErrors; }

std::string PeriodText(const Period& period) {
  return std::to_string(period.PeriodDays) + (period.PeriodDays > 1 ? " days" : " day");
}

std::string Blanks(int count) { return std::string(static_cast<std::size_t>(std::max(count, 0)), ' '); }
std::string Dashes(int count) { return std::string(static_cast<std::size_t>(std::max(count, 0)), '-'); }

int CostWidth() {
  return static_cast<int>(Region.CurrencySymbol.size()) + 8 + int{Region.SymbolSpaced} +
         int{Region.CurrencyDigits};
}

}  // namespace qel
