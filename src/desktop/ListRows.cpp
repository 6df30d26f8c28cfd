#include "desktop/ListRows.h"

#include <QIcon>

#include "desktop/Look.h"
#include "desktop/QtValues.h"

namespace qel {

void ListRows::Renew() {
  beginResetModel();
  rows = list.RowCount();
  columns = static_cast<int>(list.Columns().size());
  endResetModel();
}

int ListRows::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows; }

int ListRows::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns; }

// A view asks for what is no cell too, and for rows that have gone meanwhile.
QVariant ListRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= list.RowCount()) return {};
  if (role == Qt::TextAlignmentRole) return AlignmentOf(index.column());
  if (role == Qt::DecorationRole) return IconOf(index);
  if (role != Qt::DisplayRole) return {};
  return ToQt(list.Cell(index.row() + 1, index.column() + 1));
}

QVariant ListRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= static_cast<int>(list.Columns().size())) return {};
  if (role == Qt::TextAlignmentRole) return AlignmentOf(section);
  if (role == Qt::DisplayRole) return ToQt(list.Columns()[static_cast<std::size_t>(section)].Text);
  return {};
}

QVariant ListRows::IconOf(const QModelIndex& index) const {
  if (index.column() > 0) return {};
  const ListRow& row = list.Row(index.row() + 1);
  if (row.Mark != 0) return MarkColour(row.Mark - 1);
  const int icon = row.SmallIcon;
  return icon == 0 ? QVariant() : QIcon(QStringLiteral(":/icons/small%1.svg").arg(icon));
}

QVariant ListRows::AlignmentOf(int column) const {
  if (column >= static_cast<int>(list.Columns().size())) return {};
  switch (list.Columns()[static_cast<std::size_t>(column)].Alignment) {
    case ColumnAlign::Right:
      return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    case ColumnAlign::Centre:
      return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
    case ColumnAlign::Left:
      break;
  }
  return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
}

}  // namespace qel
