// The list box, and the list that drops down.

#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

#include "controls/Lists.h"
#include "desktop/ControlFace.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

QString TextOf(const QListWidget& list, int index) { return list.item(index)->text(); }
void SetText(QListWidget& list, int index, const QString& text) { list.item(index)->setText(text); }
void DropLast(QListWidget& list) { delete list.takeItem(list.count() - 1); }

QString TextOf(const QComboBox& list, int index) { return list.itemText(index); }
void SetText(QComboBox& list, int index, const QString& text) { list.setItemText(index, text); }
void DropLast(QComboBox& list) { list.removeItem(list.count() - 1); }

template <class Shown>
void PushItems(const ListBox& model, Shown& list) {
  while (list.count() > model.ListCount()) DropLast(list);
  for (int i = 0; i < model.ListCount(); ++i) {
    const QString text = ToQt(model.Items()[static_cast<std::size_t>(i)]);
    if (i == list.count())
      list.addItem(text);
    else if (TextOf(list, i) != text)
      SetText(list, i, text);
  }
}

class ListBoxFace : public ControlFace {
 public:
  ListBoxFace(FormFace& form, ListBox& model, QListWidget& list)
      : ControlFace(form, model, &list), model(model), list(list) {
    connect(&list, &QListWidget::currentRowChanged, this, [this](int row) { Choose(row); });
    connect(&list, &QListWidget::itemClicked, this, [this] {
      if (!hasChosen) Choose(this->list.currentRow());
    });
    connect(&list, &QListWidget::itemDoubleClicked, this,
            [this] { Tell([this] { this->model.UserDblClick(); }); });
  }

  bool Filter(QWidget& watched, QEvent& event) override {
    if (event.type() == QEvent::MouseButtonPress) hasChosen = false;
    return ControlFace::Filter(watched, event);
  }

 private:
  void Choose(int row) {
    hasChosen = true;
    Tell([this, row] { model.UserChoose(row); });
  }
  void Push() override {
    ControlFace::Push();
    const QSignalBlocker silent(list);
    PushItems(model, list);
    if (list.currentRow() != model.ListIndex()) list.setCurrentRow(model.ListIndex());
    if (model.ListIndex() < 0)
      list.setCurrentIndex({});  // else it picks the first entry when it gets the focus
  }
  ListBox& model;
  QListWidget& list;
  bool hasChosen = false;  // by the click that is under way
};

class ComboFace : public ControlFace {
 public:
  ComboFace(FormFace& form, ComboBox& model, QComboBox& list)
      : ControlFace(form, model, &list), model(model), list(list) {
    list.setEditable(!model.IsPickOnly());
    list.setInsertPolicy(QComboBox::NoInsert);
    connect(&list, &QComboBox::activated, this,
            [this](int index) { Tell([this, index] { this->model.UserChoose(index); }); });
    if (QLineEdit* field = list.lineEdit()) {
      field->setObjectName("qt_field");
      field->setAccessibleName(list.accessibleName());
      list.setCompleter(nullptr);
      connect(field, &QLineEdit::textEdited, this,
              [this](const QString& text) { Tell([this, &text] { this->model.UserText(FromQt(text)); }); });
    }
  }

  // What is selected when the focus comes is for the model to say.
  bool Filter(QWidget& watched, QEvent& event) override {
    if (event.type() != QEvent::FocusIn || model.SelectsOnTab) return ControlFace::Filter(watched, event);
    QFocusEvent entry(QEvent::FocusIn, Qt::OtherFocusReason);
    static_cast<QObject&>(watched).event(&entry);
    return true;
  }

 private:
  void Push() override {
    ControlFace::Push();
    const QSignalBlocker silent(list);
    PushItems(model, list);
    if (list.currentIndex() != model.ListIndex()) list.setCurrentIndex(model.ListIndex());
    const QString text = ToQt(model.Text());
    if (list.isEditable() && list.currentText() != text) list.setEditText(text);
    if (model.TextSelected && !list.lineEdit()->hasSelectedText()) list.lineEdit()->selectAll();
  }
  ComboBox& model;
  QComboBox& list;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfList(FormFace& form, Control& control) {
  if (auto face = FaceOf<ComboFace, ComboBox, QComboBox>(form, control)) return face;
  return FaceOf<ListBoxFace, ListBox, QListWidget>(form, control);
}

}  // namespace qel
