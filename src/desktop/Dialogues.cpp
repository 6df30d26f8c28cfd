#include "desktop/Dialogues.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <algorithm>
#include <vector>

#include "core/Surroundings.h"
#include "desktop/ModalWindows.h"
#include "desktop/QtValues.h"
#include "desktop/ScreenRoom.h"

namespace qel {

namespace {

struct AnswerButton {
  Answer answer;
  const char* caption;
  QMessageBox::ButtonRole role;
};

// Roles say what Escape and the closing of the box mean: a rejecting button, or the only one. Where there is
// neither, the user has to answer.
std::vector<AnswerButton> ButtonsOf(Buttons buttons) {
  constexpr auto Plain = QMessageBox::AcceptRole;
  switch (buttons) {
    case Buttons::OKCancel:
      return {{Answer::OK, "OK", Plain}, {Answer::Cancel, "Cancel", QMessageBox::RejectRole}};
    case Buttons::AbortRetryIgnore:
      return {{Answer::Abort, "&Abort", Plain},
              {Answer::Retry, "&Retry", Plain},
              {Answer::Ignore, "&Ignore", Plain}};
    case Buttons::YesNo:
      return {{Answer::Yes, "&Yes", Plain}, {Answer::No, "&No", Plain}};
    case Buttons::OK:
      break;
  }
  return {{Answer::OK, "OK", Plain}};
}

QMessageBox::Icon IconOf(Icon icon) {
  switch (icon) {
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

// The texts bring their own line breaks; no line is broken again where the screen has room for it.
void KeepLines(QMessageBox& box) {
  auto* const label = box.findChild<QLabel*>("qt_msgbox_label");
  if (!label) return;
  const int wanted = label->fontMetrics().size(0, label->text()).width() + 2 * label->margin();
  label->setMinimumWidth(std::min(wanted, box.screen()->availableSize().width() * 3 / 4));
}

// The work that waits for an answer has the hourglass; whoever answers has the usual pointer meanwhile.
class UsualPointer {
 public:
  UsualPointer() { CurrentHost().SetMousePointer(MousePointer::Default); }
  ~UsualPointer() {
    if (waits) CurrentHost().SetMousePointer(MousePointer::Hourglass);
  }
  UsualPointer(const UsualPointer&) = delete;
  UsualPointer& operator=(const UsualPointer&) = delete;

 private:
  const bool waits = QApplication::overrideCursor() != nullptr;
};

// The box stays while the help is read.
void AddHelpButton(QMessageBox& box, int context, EventLoop& loop) {
  if (context == 0) return;
  QPushButton* const help = box.addButton("Help", QMessageBox::HelpRole);
  help->setShortcut(Qt::Key_F1);
  help->disconnect();  // from what would close the box
  QObject::connect(help, &QPushButton::clicked, &box,
                   [context, &loop] { loop.Dispatch([context] { CurrentHost().ShowHelp(context); }); });
}

// "Text (*.txt;*.log)|*.txt;*.log|All (*.*)|*.*" as "Text (*.txt *.log)" and "All (*)".
QStringList KindsOf(const std::string& filter) {
  const QStringList parts = ToQt(filter).split(u'|');
  QStringList kinds;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString name = parts[i];
    name.remove(QRegularExpression(R"(\s*\([^)]*\)\s*$)"));
    kinds += name + " (" + QString(parts[i + 1]).replace(u';', u' ').replace("*.*", "*") + ')';
  }
  return kinds;
}

// What a name to save under gets: "txt" of "Text (*.txt *.log)".
QString SuffixOf(const QString& kind) {
  static const QRegularExpression first(R"(\(\*\.(\w+))");
  return first.match(kind).captured(1);
}

void Begin(QFileDialog& dialogue, const std::string& folder, const QString& name) {
  if (!folder.empty()) dialogue.setDirectory(QFile::decodeName(folder.c_str()));
  if (!name.isEmpty()) dialogue.selectFile(name);
}

// Names have the extension that their kind of file is listed by. Before the toolkit asks whether to write
// over a file, the name is the whole one.
class SaveDialogue : public QFileDialog {
 public:
  explicit SaveDialogue(const FileDialog& wanted) {
    setAcceptMode(QFileDialog::AcceptSave);
    setNameFilters(KindsOf(wanted.Filter));
    setDefaultSuffix(Suffix());  // for a dialogue of the desktop's own, which has no such field
    connect(this, &QFileDialog::filterSelected, this, [this] { TakeKind(); });
    Begin(*this, wanted.Folder, Extended(QFile::decodeName(wanted.FileName.c_str())));
  }

  void accept() override {
    if (Field() && !QFileInfo(directory(), Field()->text()).isDir())
      Field()->setText(Extended(Field()->text()));
    QFileDialog::accept();
  }

 private:
  QLineEdit* Field() const { return findChild<QLineEdit*>("fileNameEdit"); }
  QString Suffix() const { return SuffixOf(selectedNameFilter()); }

  // Of the kinds that are offered, the one that a name says itself to be of.
  QString SuffixIn(const QString& name) const {
    for (const QString& kind : nameFilters())
      if (const QString suffix = SuffixOf(kind); name.endsWith('.' + suffix, Qt::CaseInsensitive))
        return suffix;
    return "";
  }
  QString Extended(const QString& name) const {
    const bool has = Suffix().isEmpty() || !SuffixIn(name).isEmpty();
    return has || name.isEmpty() ? name : name + '.' + Suffix();
  }
  void TakeKind() {
    setDefaultSuffix(Suffix());
    if (!Field()) return;
    QString name = Field()->text();
    if (const QString old = SuffixIn(name); !old.isEmpty()) name.chop(old.size() + 1);
    Field()->setText(Extended(name));
  }
};

std::optional<std::string> PathOf(QFileDialog& dialogue) {
  if (RunDialogue(dialogue) != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return std::nullopt;
  return QFile::encodeName(QDir::toNativeSeparators(dialogue.selectedFiles().front())).toStdString();
}

}  // namespace

int RunDialogue(QDialog& dialogue) {
  const UsualPointer pointer;
  MakeModal(dialogue);  // no child of its owner: it lives on the caller's stack
  FitInto(dialogue, dialogue.screen()->availableGeometry());
  dialogue.show();
  CurrentHost().RunModal([&dialogue] { return !dialogue.isVisible(); });
  return dialogue.result();
}

Answer ShowMessageBox(const Message& message, EventLoop& loop) {
  QMessageBox box(IconOf(message.icon), ToQt(message.Title), LinesToQt(message.Text));
  box.setTextFormat(Qt::PlainText);
  KeepLines(box);
  std::vector<std::pair<const QAbstractButton*, Answer>> answers;
  for (const AnswerButton& row : ButtonsOf(message.buttons)) {
    QPushButton* const button = box.addButton(row.caption, row.role);
    answers.emplace_back(button, row.answer);
    if (static_cast<int>(answers.size()) == message.DefaultButton) box.setDefaultButton(button);
    // The toolkit takes an only button, but not beside a Help button.
    if (message.buttons == Buttons::OK || static_cast<int>(answers.size()) == message.EscapeButton)
      box.setEscapeButton(button);
  }
  AddHelpButton(box, message.HelpContext, loop);
  RunDialogue(box);
  for (const auto& [button, answer] : answers)
    if (button == box.clickedButton()) return answer;
  return answers.back().second;
}

std::optional<std::string> AskFileToOpen(const FileDialog& wanted) {
  QFileDialog dialogue;
  dialogue.setFileMode(QFileDialog::ExistingFile);
  dialogue.setNameFilter(ToolkitFilter(wanted.Filter));
  Begin(dialogue, wanted.Folder, QFile::decodeName(wanted.FileName.c_str()));
  return PathOf(dialogue);
}

std::optional<std::string> AskFileToSave(const FileDialog& wanted) {
  SaveDialogue dialogue(wanted);
  return PathOf(dialogue);
}

QString ToolkitFilter(const std::string& filter) {
  QStringList shown = KindsOf(filter), names, all;
  for (const QString& kind : shown) {
    const qsizetype bracket = kind.lastIndexOf(u'(');
    const QString patterns = kind.sliced(bracket + 1).chopped(1);
    if (patterns == u"*") continue;
    names += kind.first(bracket).trimmed();
    all += patterns;
  }
  if (names.size() > 1) shown.prepend(names.join(", ") + " (" + all.join(u' ') + ')');
  return shown.join(";;");
}

}  // namespace qel
