// A list in report form: columns with headers, rows with a text in the leading column and subitems behind it.
#pragma once

#include <string>
#include <vector>

#include "controls/Control.h"

namespace qel {

enum class ColumnAlign { Left = 0, Right = 1, Centre = 2 };

struct ListColumn {
  std::string Text;
  int Width = 1440;  // twips; 0 hides the column
  ColumnAlign Alignment = ColumnAlign::Left;
  int Least = 0;  // twips that a face shows at least, whatever the width; until the user drags the edge
};

struct ListRow {
  std::string Text;
  std::vector<std::string> SubItems;  // SubItems[0] stands in the second column; may end early
  int SmallIcon = 0;                  // in front of the text; 0 for none
  int Mark = 0;                       // the colour in front of the text, as a Timetable has it; 0 for none
};

// Rows and columns count from 1, as users count them. Faces read rows in place: tens of thousands stay fluid.
class ListView : public Control {
 public:
  using Control::Control;

  const std::vector<ListColumn>& Columns() const { return columns; }
  void SetColumns(std::vector<ListColumn> wanted);
  // Raises 9 for a column that is none.
  void SetColumnWidth(int column, int width);

  const std::vector<ListRow>& Rows() const { return rows; }
  int RowCount() const { return static_cast<int>(rows.size()); }
  void SetRows(std::vector<ListRow> wanted);
  void AddRow(ListRow row);
  // Raise 9 for a row that is none. What was selected stays selected unless it goes.
  const ListRow& Row(int row) const;
  void SetRow(int row, ListRow content);
  void RemoveRow(int row);
  void Clear() { SetRows({}); }
  // The text of a cell, column 1 being the leading one; empty where the row ends before it.
  std::string Cell(int row, int column) const;

  int SelectedRow() const { return selected; }  // 0 for none
  void SelectRow(int row);                      // raises 9 for a row that is none; 0 selects none

  Property<bool> FullRowSelect{Shown()};
  Property<bool> HideSelection{Shown(), true};

  Event<int> ColumnClick;  // with the column
  Event<> ItemClick;

  void UserSelect(int row);
  void UserColumnClick(int column);
  // The user dragged a header's edge.
  void UserColumnWidth(int column, int width);

  // Called when rows changed, besides ViewChanged: a face then asks for all of them again.
  std::function<void()> RowsChanged;

 private:
  void ShowRows() const;
  void CheckRow(int row) const;

  std::vector<ListColumn> columns;
  std::vector<ListRow> rows;
  int selected = 0;
};

}  // namespace qel
