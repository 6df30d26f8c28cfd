// What holds for every window: each control has its widget, and each widget its control; it has its room on
// the screen, however small that is; the tab key leads through it; and it tells the user who cannot see it
// what each of its parts is. Run a second time on a screen of 400 x 400.
#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QTabBar>
#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "MissingBindings.h"
#include "ProgramTest.h"
#include "desktop/QtValues.h"
#include "registry/RegistryStore.h"
#include "settings/Settings.h"

namespace qel {
namespace {

class EveryWindow : public ProgramTest {
 protected:
  EveryWindow() {
    DefaultLog(LogOf("01-05-1999", "01-06-1999"));
    const std::string modem = "HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\Class\\Modem\\0000";
    store.CreateKey(modem);
    store.Set(modem, "DriverDesc", {REG_SZ, "Internal 33600" + std::string(1, '\0')});
    store.Set(modem, "Logging", {REG_BINARY, std::string(1, '\0')});
    session->modems.PreConfigure(true);
    settings.Holidays[0] = Today() - 1;
    settings.UsedHolidays = 1;
    AddService(std::string(60, 'x'), "1", "");
    windows->SplashForm->Main = [] {};
  }

  // Shows each window, and each page of those that have tabs.
  void ForEachPage(const std::function<void(Form&, QWidget&, const std::string&)>& look) {
    windows->MainForm->Show();  // as long as one is loaded the program goes on
    windows->MainForm->btnProcess.UserClick();
    windows->ServiceForm->NewService = windows->TariffForm->NewTariff = true;
    for (Form* form : std::initializer_list<Form*>{
             &*windows->MainForm, &*windows->SplashForm, &*windows->ReportForm, &*windows->PriceForm,
             &*windows->CompareForm, &*windows->AboutForm, &*windows->FileRepairForm, &*windows->PurgeForm,
             &*windows->ViewLogForm, &*windows->FindForm, &*windows->SetupForm, &*windows->ServiceForm,
             &*windows->TariffForm, &*windows->TipForm, &*windows->PreConfigureForm, &*windows->HelpForm}) {
      form->Show();
      QTest::qWait(250);  // until its frame is known
      QWidget& window = FaceOf(*form)->Window();
      auto* const tabs = window.findChild<QTabBar*>("TabStrip1");
      for (int page = 0; page < (tabs ? tabs->count() : 1); ++page) {
        if (tabs) tabs->setCurrentIndex(page);
        QTest::qWait(10);
        look(*form, window, form->Name() + (tabs ? " " + FromQt(tabs->tabText(page)) : ""));
      }
      if (form != &*windows->MainForm) form->Unload();
    }
  }

  static bool CanBeReached(const QWidget& widget, const QWidget& window) {
    for (const QWidget* around = widget.parentWidget(); around && around != &window;
         around = around->parentWidget())
      if (around->inherits("QScrollArea")) return true;
    return window.rect().contains(QRect(widget.mapTo(&window, QPoint()), widget.size()));
  }
};

TEST_F(EveryWindow, IsWholeAndStandsOnTheScreenAndCanBeUsedThere) {
  ForEachPage([](Form& form, QWidget& window, const std::string& name) {
    for (const auto& fault : MissingBindings::Of(form)) ADD_FAILURE() << name << ": " << fault;
    const QSize screen = window.screen()->size();
    window.grab().save(
        QString("%1/screen%2-%3.png").arg(QEL_SCREENSHOTS).arg(screen.width()).arg(ToQt(name)));
    const QRect place = window.frameGeometry();
    EXPECT_TRUE(window.screen()->availableGeometry().contains(place))
        << name << ' ' << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height();
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      const bool counts = widget->isVisible() && widget->focusPolicy() != Qt::NoFocus;
      EXPECT_TRUE(!counts || CanBeReached(*widget, window))
          << name << ": " << widget->objectName().toStdString();
    }
  });
}

// Goes round both ways; each press leads to another control, in the toolkit and in the model.
TEST_F(EveryWindow, IsWalkedThroughByTheTabKey) {
  ForEachPage([](Form& form, QWidget& window, const std::string& name) {
    if (std::ranges::count_if(form.Controls(), &Control::CanHaveFocus) < 2) return;
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window)) << name;
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab})
      for (std::size_t i = 0; i < form.Controls().size(); ++i) {
        QWidget* const left = window.focusWidget();
        if (!form.ActiveControl() || !left) return;
        QTest::keyClick(left, key, key == Qt::Key_Tab ? Qt::NoModifier : Qt::ShiftModifier);
        for (int n = 0; n < 2; ++n) QCoreApplication::processEvents();
        EXPECT_NE(window.focusWidget(), left) << name << ": " << FromQt(left->objectName());
        EXPECT_EQ(FaceOf(form)->ControlOf(window.focusWidget()), form.ActiveControl()) << name;
      }
  });
}

// Names and tool tips of all that takes the focus or a click. With QEL_ACCEPT=1 the file is written anew.
TEST_F(EveryWindow, NamesWhateverTakesTheFocusOrAClick) {
  std::string told;
  const QString home = ToQt(folder.Path());
  const auto tell = [&](const QObject& object, const QString& name, const QString& tip) {
    QString line =
        "  " + object.objectName() + " \"" + name + '"' + (tip.isEmpty() ? "" : " (" + tip + ")") + '\n';
    told += line.replace(home, "~").toStdString();
  };
  ForEachPage([&](Form&, QWidget& window, const std::string& page) {
    told += page + " \"" + window.windowTitle().toStdString() + "\"\n";
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      const bool counts =
          widget->focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(widget);
      if (!counts && widget->toolTip().isEmpty()) continue;
      const QString name = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget))
                               ->text(QAccessible::Name)
                               .trimmed();
      tell(*widget, name, widget->toolTip());
      EXPECT_TRUE(!counts || (name.size() > 1 && !name.startsWith('('))) << told;
    }
    for (const QAction* action : window.findChildren<QAction*>())
      if (action->isVisible() && !action->text().isEmpty()) tell(*action, action->text(), action->toolTip());
  });
  const std::string path = QEL_SOURCE_DIR "/tests/desktop/EveryWindow.expected";
  if (std::getenv("QEL_ACCEPT")) std::ofstream(path) << told;
  EXPECT_EQ(told, ReadWholeFile(path));
}

}  // namespace
}  // namespace qel
