#include "desktop/DesktopHost.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDialog>
#include <QMimeData>
#include <QPalette>
#include <QProcess>
#include <QUrl>

#include "core/Version.h"
#include "desktop/Dialogues.h"
#include "desktop/Printing.h"
#include "desktop/QtValues.h"
#include "desktop/Sound.h"

namespace qel {

namespace {

// A web page or a mail address; anything else is a file.
bool IsAddress(const QString& text) {
  for (const char* scheme : {"http://", "https://", "mailto:"})
    if (text.startsWith(QLatin1String(scheme), Qt::CaseInsensitive)) return true;
  return false;
}

}  // namespace

Answer DesktopHost::MessageBox(const Message& message) { return ShowMessageBox(message, Loop); }

void DesktopHost::RunModal(const std::function<bool()>& done) { Loop.RunUntil(done); }

void DesktopHost::Yield() { Loop.Yield(); }

void DesktopHost::Paint() { Loop.Paint(); }

void DesktopHost::SetMousePointer(MousePointer shape) {
  while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
  if (shape == MousePointer::Hourglass) QApplication::setOverrideCursor(Qt::WaitCursor);
}

void DesktopHost::SetClipboardText(const std::string& text) {
  QApplication::clipboard()->setText(LinesToQt(text));
}

void DesktopHost::SetClipboardPage(const std::string& text, const std::string& html) {
  auto* const content = new QMimeData;  // the clipboard's from here on
  content->setText(LinesToQt(text));
  content->setHtml(QString::fromStdString(html));
  QApplication::clipboard()->setMimeData(content);
}

void DesktopHost::PlaySoundFile(const std::string& path) { PlaySound(path); }

std::string DesktopHost::ClipboardText() { return LinesFromQt(QApplication::clipboard()->text()); }

// The toolkit does not tell; the lamps of the keyboards do.
bool DesktopHost::IsLocked(LockKey key) {
  const QDir lamps("/sys/class/leds");
  const QString pattern = key == LockKey::Caps ? "*::capslock" : "*::scrolllock";
  for (const QString& lamp : lamps.entryList({pattern})) {
    QFile brightness(lamps.filePath(lamp + "/brightness"));
    if (brightness.open(QIODevice::ReadOnly) && brightness.readAll().trimmed() != "0") return true;
  }
  return false;
}

void DesktopHost::Beep() { QApplication::beep(); }

std::optional<std::string> DesktopHost::AskOpenFile(const FileDialog& dialog) {
  return AskFileToOpen(dialog);
}

std::optional<std::string> DesktopHost::AskSaveFile(const FileDialog& dialog) {
  return AskFileToSave(dialog);
}

std::optional<Font> DesktopHost::AskFont(const Font& font) {
  QFontDialog dialog(ToQt(font, QApplication::font()));
  if (RunDialogue(dialog) != QDialog::Accepted) return std::nullopt;
  return FromQt(dialog.selectedFont());
}

void DesktopHost::Print(const PrintJob& job) { PreviewAndPrint(job); }

void DesktopHost::OpenDocument(const std::string& document) {
  const QString name = QFile::decodeName(document.c_str());
  const bool isAddress = IsAddress(name);
  if (!isAddress && !QFileInfo::exists(name)) Raise(FileNotFound);
  if (QDesktopServices::openUrl(isAddress ? QUrl(name) : QUrl::fromLocalFile(name))) return;
  // What is missing is no part of the program; the user can still go there.
  MessageBox(
      {"No program on this system opens this:\r\n\r\n" + FromQt(name), ProgramTitle, Icon::Information});
}

void DesktopHost::StartProgram(const std::string& command) {
  const QString whole = QFile::decodeName(command.c_str());
  // A path may hold blanks; only what is no program as a whole is a program and its arguments.
  QStringList words = QFileInfo(whole).isExecutable() ? QStringList(whole) : QProcess::splitCommand(whole);
  if (words.isEmpty()) Raise(FileNotFound);
  const QString program = words.takeFirst();
  if (!QProcess::startDetached(program, words)) Raise(FileNotFound);
}

unsigned DesktopHost::BackgroundColour() {
  return QApplication::palette().color(QPalette::Button).rgb() & 0xFFFFFF;
}

}  // namespace qel
