// The list in report form. Rows may come one by one and by the ten thousand, so the list is shown anew once
// for all changes that an event makes.

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QTimer>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>
#include <set>

#include "controls/ListView.h"
#include "core/Surroundings.h"
#include "desktop/ControlFace.h"
#include "desktop/ListRows.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

class ListViewFace : public ControlFace {
 public:
  ListViewFace(FormFace& form, ListView& model, QTreeView& view)
      : ControlFace(form, model, &view), model(model), view(view), header(*view.header()), rows(model) {
    view.setModel(&rows);
    view.setUniformRowHeights(true);
    view.setRootIsDecorated(false);
    view.setItemsExpandable(false);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setTextElideMode(Qt::ElideRight);
    header.setStretchLastSection(false);
    header.setSectionsClickable(true);
    header.setSectionsMovable(false);
    header.setSectionResizeMode(QHeaderView::Interactive);
    connect(&header, &QHeaderView::sectionClicked, this,
            [this](int at) { Tell([this, at] { this->model.UserColumnClick(at + 1); }); });
    connect(&header, &QHeaderView::sectionResized, this, [this](int at, int, int width) {
      Tell([this, at, width] { this->model.UserColumnWidth(at + 1, Twips(width)); });
    });
    connect(view.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& row) { TakeRow(row.row() + 1); });
    connect(&view, &QAbstractItemView::clicked, this, [this](const QModelIndex& row) {
      if (!hasSelected) TakeRow(row.row() + 1);
    });
    connect(&view, &QAbstractItemView::doubleClicked, this,
            [this] { Tell([this] { this->model.UserDblClick(); }); });
  }

  void Attach() override {
    model.RowsChanged = [this] { rowsAreOld = true; };
    rowsAreOld = true;
    ControlFace::Attach();
  }
  void Detach() override {
    model.RowsChanged = nullptr;
    ControlFace::Detach();
  }

  // A text that does not fit in its cell is shown whole in a tool tip.
  bool Filter(QWidget& watched, QEvent& event) override {
    if (event.type() == QEvent::MouseButtonPress) hasSelected = false;
    if (event.type() == QEvent::FocusIn || event.type() == QEvent::FocusOut) ShowLater();
    if (event.type() == QEvent::KeyPress && static_cast<QKeyEvent&>(event).matches(QKeySequence::Copy)) {
      CopySelected();
      return true;
    }
    if (event.type() != QEvent::ToolTip || &watched != view.viewport())
      return ControlFace::Filter(watched, event);
    const auto& help = static_cast<QHelpEvent&>(event);
    const QModelIndex cell = view.indexAt(help.pos());
    const QString text = PlainToolTip(cell.data().toString());
    const QRect place = view.visualRect(cell);
    if (!cell.isValid() || view.sizeHintForIndex(cell).width() <= place.width()) return false;
    QToolTip::showText(help.globalPos(), text, view.viewport(), place);
    return true;
  }

 private:
  void Push() override {
    ControlFace::Push();
    ShowLater();
  }

  void ShowLater() {
    if (waiting) return;
    waiting = true;
    QTimer::singleShot(0, this, [this] {
      waiting = false;
      if (form.IsReleased()) return;
      const FormFace::Pushing pushing(form);
      PushList();
    });
  }

  void PushList() {
    if (rowsAreOld || rows.columnCount() != static_cast<int>(model.Columns().size())) rows.Renew();
    rowsAreOld = false;
    PushColumns();
    view.setSelectionBehavior(model.FullRowSelect ? QAbstractItemView::SelectRows
                                                  : QAbstractItemView::SelectItems);
    PushHighlight();
    PushSelection();
  }

  void PushColumns() {
    for (int i = 0; i < rows.columnCount(); ++i) {
      const int width = model.Columns()[static_cast<std::size_t>(i)].Width;
      header.setSectionHidden(i, width <= 0);
      const int least = Pixels(model.Columns()[static_cast<std::size_t>(i)].Least);
      const int shown = std::max({Pixels(width), least, LeastWidth(i)});
      if (width > 0 && header.sectionSize(i) != shown) header.resizeSection(i, shown);
    }
    emit rows.headerDataChanged(Qt::Horizontal, 0, std::max(0, rows.columnCount() - 1));
  }

  // Titles are readable however narrow a column is set, and so are the row numbers of one without a title.
  int LeastWidth(int column) const {
    const bool hasTitle = !model.Columns()[static_cast<std::size_t>(column)].Text.empty();
    const int digits =
        view.fontMetrics().horizontalAdvance("00000") + 2 * view.fontMetrics().averageCharWidth();
    return hasTitle ? header.sectionSizeHint(column) : digits;
  }

  // The toolkit tells active windows from others, but not which of their lists has the focus.
  void PushHighlight() {
    const bool hides = model.HideSelection && !view.hasFocus();
    const QPalette usual = QApplication::palette(&view);
    QPalette palette = view.palette();
    palette.setColor(QPalette::Highlight, usual.color(hides ? QPalette::Base : QPalette::Highlight));
    palette.setColor(QPalette::HighlightedText,
                     usual.color(hides ? QPalette::Text : QPalette::HighlightedText));
    if (palette != view.palette()) view.setPalette(palette);
  }

  void PushSelection() {
    const int row = model.SelectedRow() - 1;
    auto& selection = *view.selectionModel();
    if (row < 0) {
      selection.clear();
      view.setCurrentIndex({});  // else the view picks the first row when it gets the focus
    } else if (selection.currentIndex().row() != row || !selection.hasSelection()) {
      const int leading = std::max(0, header.logicalIndexAt(0));
      const QModelIndex cell = rows.index(row, leading);
      const bool isSeen = view.viewport()->rect().contains(view.visualRect(cell));
      view.setCurrentIndex(cell);
      view.scrollTo(cell, isSeen ? QTreeView::EnsureVisible : QTreeView::PositionAtCenter);
    }
  }

  // The selected rows as tables take them, without the columns that are hidden: cells divided by tabs, and
  // as a table.
  void CopySelected() const {
    std::set<int> selected;
    for (const QModelIndex& cell : view.selectionModel()->selectedIndexes()) selected.insert(cell.row());
    QString text, table;
    for (const int row : selected) {
      QStringList cells;
      for (int column = 0; column < rows.columnCount(); ++column)
        if (!header.isSectionHidden(column)) cells += rows.index(row, column).data().toString().trimmed();
      text += cells.join(u'\t') + u'\n';
      table += "<tr><td>" + cells.join(u'\t').toHtmlEscaped().replace(u'\t', "</td><td>") + "</td></tr>\n";
    }
    CurrentHost().SetClipboardPage(FromQt(text), "<table>\n" + table.toStdString() + "</table>\n");
  }

  void TakeRow(int row) {
    if (rowsAreOld) return;  // the row is not the one that the user sees
    hasSelected = true;
    Tell([this, row] { model.UserSelect(row); });
  }

  ListView& model;
  QTreeView& view;
  QHeaderView& header;
  ListRows rows;
  bool rowsAreOld = false;
  bool waiting = false;      // to be shown anew
  bool hasSelected = false;  // by the click that is under way
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfListView(FormFace& form, Control& control) {
  return FaceOf<ListViewFace, ListView, QTreeView>(form, control);
}

}  // namespace qel
