// qel: the desktop program.

#include <QApplication>
#include <QIcon>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>

#include "core/Surroundings.h"
#include "core/Version.h"
#include "desktop/DesktopHost.h"
#include "desktop/FormFace.h"
#include "desktop/Look.h"
#include "desktop/WindowDesigns.h"
#include "settings/StoredValues.h"
#include "startup/QELMain.h"

namespace {

constexpr char Usage[] = "usage: qel [--help] [--version]\n";

// The exit status of a run that opens no window.
std::optional<int> StatusWithoutWindow(int count, char** words) {
  if (count < 2) return std::nullopt;
  const std::string word = words[1];
  if (count == 2 && word == "--version") {
    std::cout << "qel " << qel::VersionText() << '\n';
  } else if (count == 2 && (word == "--help" || word == "-h")) {
    std::cout << Usage
              << "\nOpens the program's windows; logs, reports and settings are opened from its File menu.\n"
                 "qelreport gives the same reports to scripts.\n\n"
                 "  --help     print this help, as -h does\n  --version  print the version\n";
  } else {
    std::cerr << "qel: unknown argument '" << words[count - 1] << "'\n" << Usage;
    return 2;
  }
  return std::cout.flush() ? 0 : 1;
}

// Without a display the toolkit would end the program itself, with a page of advice and a core dump.
void TellNoDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type != QtFatalMsg) return;
  std::cerr << "qel: there is no display to open a window on; qelreport makes the reports without one\n";
  std::_Exit(1);
}

}  // namespace

int main(int count, char** words) {
  if (const auto status = StatusWithoutWindow(count, words)) return *status;
  qInstallMessageHandler(TellNoDisplay);
  QApplication application(count, words);
  qInstallMessageHandler(nullptr);
  QApplication::setApplicationName("qel");
  QApplication::setDesktopFileName("qel");
  QApplication::setQuitOnLastWindowClosed(false);  // the program's forms say when it ends
  QApplication::setWindowIcon(QIcon(":/icons/qel.svg"));
  qel::ApplyLook();
  qel::Session session;
  qel::Windows windows(session);
  qel::DesktopHost host(windows);
  const qel::Surroundings around(host, host);
  qel::AttachFaces(windows.Screen, qel::ProgramWindows(), host.Loop);

  host.Loop.Dispatch([&windows] { qel::StartProgram(windows); });
  host.Loop.Run();
  qel::ReleaseFaces(windows.Screen);
  // What an earlier attempt could not write.
  host.Loop.Dispatch([&session] { qel::SaveRegistry(session.store); });
  return 0;
}
