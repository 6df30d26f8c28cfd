// The rows of a list view for the toolkit, read from the control in place.
#pragma once

#include <QAbstractTableModel>

#include "controls/ListView.h"

namespace qel {

class ListRows : public QAbstractTableModel {
 public:
  explicit ListRows(const ListView& list) : list(list) {}

  // Has the view ask for everything again. Until then it sees as many rows and columns as there were, the
  // ones that have gone empty.
  void Renew();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QVariant AlignmentOf(int column) const;
  QVariant IconOf(const QModelIndex& index) const;

  const ListView& list;
  int rows = 0, columns = 0;  // as the view knows them
};

}  // namespace qel
