// qel: the desktop program.

#include <QApplication>
#include <QIcon>
#include <iostream>

#include "core/EndProgram.h"
#include "desktop/DesktopHost.h"
#include "desktop/EventLoop.h"
#include "desktop/FormFace.h"
#include "desktop/Look.h"
#include "desktop/Windows.h"
#include "startup/QELMain.h"

int main(int count, char** words) {
  if (count > 1) {
    std::cerr << "usage: qel\n";
    return 2;
  }
  QApplication application(count, words);
  QApplication::setApplicationName("qel");
  QApplication::setDesktopFileName("qel");
  QApplication::setQuitOnLastWindowClosed(false);  // the program's forms say when it ends
  QApplication::setWindowIcon(QIcon(":/icons/qel.svg"));
  qel::ApplyLook();
  qel::DesktopHost host;
  qel::SetHost(host);
  qel::AttachFaces(qel::ProgramWindows());

  qel::Dispatch(qel::StartProgram);
  qel::RunProgram();
  qel::ReleaseFaces();
  qel::Dispatch(qel::SaveRegistry);  // what an earlier attempt could not write
  return 0;
}
