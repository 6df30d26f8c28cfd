// A report in its two presentations, built together: the fixed-pitch text that is shown, saved and printed,
// and the grid and labels of the list view. A window only has to show it.
#pragma once

#include <string>
#include <vector>

#include "reports/ReportOf.h"

namespace qel {

enum class ColumnAlignment { Left = 0, Right = 1, Centre = 2 };

// A click changes a column of blocks into one of data read, and back.
enum class ColumnKind { Plain, Blocks, DataRead };

struct ReportColumn {
  std::string Title;
  ColumnAlignment Alignment = ColumnAlignment::Left;
  int Width = 0;  // twips; 0 leaves the width to the window
  ColumnKind Kind = ColumnKind::Plain;
};

// One row of the grid. SubItems[0] is subitem 1, the column right of the leading one; a row may end early.
struct ReportRow {
  std::string Text;  // of the leading column
  std::vector<std::string> SubItems;
  bool IsRule = false;  // of dots, above the totals

  void SetSubItem(int number, std::string text);
};

struct ReportDocument {
  std::string ReportText;  // lines end in CR LF
  int TitleStart = 1;      // the title's place in ReportText, for its emphasis; counted from 0
  int TitleLength = 0;

  std::string RepTitle, RepBegin, RepEnd, RepPeriod;
  bool fraWarning = false;  // visible: the log holds errors
  bool fraNoConn = false;   // visible: no connection in the period

  std::vector<ReportColumn> Columns;  // the first is the leading column
  std::vector<ReportRow> Rows;
  int SelectedRow = 0;  // counted from 1; 0 for none

  // What both reports share: the labels and warnings of the period. `title` is "Summary" or "Details".
  void FillLabels(const ReportOf& of, const std::string& title);
  ReportRow& AddRow(std::string text = "");
  // A row of dots in every subitem, the rule above the totals.
  void AddDottedRow();
};

// Whether reports say that the log holds errors.
bool ErrorsAreShown(const ReportOf& of);

// " days" or " day" behind the number of days.
std::string PeriodText(const Period& period);

std::string Blanks(int count);  // none for a count below 0
std::string Dashes(int count);

// Width of the cost column of the text, in characters.
int CostWidth();

}  // namespace qel
