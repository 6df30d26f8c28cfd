// A fixture for the whole program with its real windows, driven by mouse and keyboard. Its windows are left
// as pictures in the build folder.
#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <deque>
#include <functional>
#include <utility>

#include "controls/Form.h"
#include "desktop/DesktopHost.h"
#include "desktop/EventLoop.h"
#include "desktop/FormFace.h"
#include "desktop/MissingBindings.h"
#include "desktop/UpDownButton.h"
#include "desktop/Windows.h"
#include "startup/QELMain.h"
#include "support/WindowTest.h"

namespace qel {

class ProgramTest : public WindowTest {
 protected:
  ProgramTest() {
    ResetClock();
    SetHost(desktop);
    AttachFaces(ProgramWindows());
    QObject::connect(&clerk, &QTimer::timeout, [this] { AnswerBoxes(); });
    clerk.start(20);
  }
  ~ProgramTest() override {
    ReleaseFaces();
    ResetWindows();
    AttachFace = nullptr;
    ResetEventLoop();
  }

  void Start() {
    ReleaseFaces();
    ResetWindows();
    ResetEventLoop();
    Dispatch(StartProgram);
    Settle();
  }

  // What waits for the user while the program asks: boxes are read and confirmed, even where No is proposed;
  // file dialogues get a path.
  void AnswerBoxes() {
    QWidget* const modal = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      asked.push_back(box->windowTitle().toStdString());
      box->grab().save(Picture("box-" + std::to_string(++boxes)));
      const bool agrees = box->buttons().size() == 2 && box->defaultButton() != box->buttons().front();
      QTest::keyClick(agrees ? box->buttons().front() : box->defaultButton(), Qt::Key_Space);
    } else if (auto* dialog = qobject_cast<QFileDialog*>(modal); dialog && !paths.empty()) {
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(paths.front()));
      paths.pop_front();
      static_cast<QDialog*>(dialog)->accept();
    } else if (modal && act) {
      // Not from here: no timer ticks inside its own tick, and the act may bring up a box.
      QTimer::singleShot(0, qApp, [this, next = std::exchange(act, nullptr)] {
        if (!next()) act = next;
      });
    }
  }
  static void Settle() { QTest::qWait(30); }

  static QWidget& WindowOf(const char* form) { return FaceOf(*LoadedForm(form))->Window(); }
  template <class Shown>
  static Shown& Get(const char* form, const char* name) {
    auto* const found = WindowOf(form).findChild<Shown*>(name);
    if (!found) throw std::runtime_error(std::string("no ") + name);
    return *found;
  }
  static void Click(QWidget& widget, const QPoint& at = {}) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
    Settle();
  }
  static void ClickTool(const char* form, const char* bar, const char* key) {
    auto& tools = Get<QToolBar>(form, bar);
    for (QAction* action : tools.actions())
      if (action->text() == key) return Click(*tools.widgetForAction(action));
    FAIL() << "no button " << key;
  }
  static void Choose(const char* form, const char* action) {
    Get<QAction>(form, action).trigger();
    Settle();
  }
  static void Type(const char* field, const char* date, const char* form = "frmMain") {
    auto& input = Get<QLineEdit>(form, field);
    Click(input);
    input.selectAll();
    QTest::keyClicks(&input, date);
    Settle();
  }
  static QString Picture(const std::string& name) {
    return QString::fromStdString(std::string(QEL_SCREENSHOTS) + "/" + name + ".png");
  }
  static void Keep(const char* form, const std::string& state) {
    Settle();
    EXPECT_TRUE(SaveScreenshot(*LoadedForm(form), Picture(form + ("-" + state)).toStdString()));
  }
  void PutSample(const std::string& name) {
    folder.Put(name, ReadWholeFile(QEL_SOURCE_DIR "/share/samples/ModemLog.txt"));
    std::string settings = ReadWholeFile(QEL_SOURCE_DIR "/share/samples/QEL.reg");
    const std::string tips = "\"Tips\"=\"True\"";
    folder.Put("registry.reg", settings.replace(settings.find(tips), tips.size(), "\"Tips\"=\"False\""));
  }

  DesktopHost desktop;
  QTimer clerk;
  std::vector<std::string> asked;
  std::deque<std::string> paths;
  // What the user does in the next modal window; false to wait until it is ready.
  std::function<bool()> act;
  int boxes = 0;
};

}  // namespace qel
