#include "controls/ListView.h"

#include <utility>

#include "values/RunTimeError.h"

namespace qel {

void ListView::SetColumns(std::vector<ListColumn> wanted) {
  columns = std::move(wanted);
  ShowChange();
}

void ListView::SetColumnWidth(int column, int width) {
  if (column < 1 || column > static_cast<int>(columns.size())) Raise(SubscriptOutOfRange);
  columns[static_cast<std::size_t>(column - 1)].Width = width;
  ShowChange();
}

void ListView::SetRows(std::vector<ListRow> wanted) {
  rows = std::move(wanted);
  selected = 0;
  ShowRows();
}

void ListView::AddRow(ListRow row) {
  rows.push_back(std::move(row));
  ShowRows();
}

const ListRow& ListView::Row(int row) const {
  CheckRow(row);
  return rows[static_cast<std::size_t>(row - 1)];
}

void ListView::SetRow(int row, ListRow content) {
  CheckRow(row);
  rows[static_cast<std::size_t>(row - 1)] = std::move(content);
  ShowRows();
}

void ListView::RemoveRow(int row) {
  CheckRow(row);
  rows.erase(rows.begin() + (row - 1));
  if (selected == row)
    selected = 0;
  else if (selected > row)
    --selected;
  ShowRows();
}

std::string ListView::Cell(int row, int column) const {
  const ListRow& found = Row(row);
  if (column == 1) return found.Text;
  const auto subItem = static_cast<std::size_t>(column - 2);
  return column > 1 && subItem < found.SubItems.size() ? found.SubItems[subItem] : "";
}

void ListView::SelectRow(int row) {
  if (row != 0) CheckRow(row);
  selected = row;
  ShowChange();
}

void ListView::UserSelect(int row) {
  if (!Usable() || row < 0 || row > RowCount()) return;
  SetFocus();
  if (CanHaveFocus() && !HasFocus()) return;
  SelectRow(row);
  if (row != 0) ItemClick();
}

void ListView::UserColumnClick(int column) {
  if (Usable()) ColumnClick(column);
}

void ListView::UserColumnWidth(int column, int width) {
  if (column < 1 || column > static_cast<int>(columns.size())) return;
  ListColumn& dragged = columns[static_cast<std::size_t>(column - 1)];
  dragged.Width = width;
  dragged.Least = 0;
}

void ListView::ShowRows() const {
  if (RowsChanged) RowsChanged();
  ShowChange();
}

void ListView::CheckRow(int row) const {
  if (row < 1 || row > RowCount()) Raise(SubscriptOutOfRange);
}

}  // namespace qel
