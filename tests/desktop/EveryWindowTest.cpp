// What holds for every window: it has its room on the screen, however small that is, and tells the user who
// cannot see it what each of its parts is. Run a second time on a screen of 400 x 400.
#include <QAbstractButton>
#include <QAccessible>
#include <QScreen>
#include <QScrollArea>
#include <QTabBar>
#include <set>

#include "ProgramTest.h"
#include "support/ModemStore.h"

namespace qel {
namespace {

class EveryWindow : public ProgramTest {
 protected:
  EveryWindow() {
    DefaultLog(LogOf("01-05-1999", "01-06-1999"));
    Store({"\\Modem\\0000"});
    PreConfigure(true);
    Holidays[0] = Today() - 1;
    UsedHolidays = 1;
    AddService(std::string(60, 'x'), "1", "");
  }

  // Shows each window, and each page of those that have tabs.
  static void ForEachPage(const std::function<void(QWidget&, const std::string&)>& look) {
    SplashForm->Main = [] {};
    MainForm->Show();  // as long as one is loaded the program goes on
    MainForm->btnProcess.UserClick();
    for (Form* form :
         std::initializer_list<Form*>{&*MainForm, &*SplashForm, &*ReportForm, &*AboutForm, &*FileRepairForm,
                                      &*PurgeForm, &*ViewLogForm, &*FindForm, &*SetupForm, &*ServiceForm,
                                      &*TariffForm, &*TipForm, &*PreConfigureForm, &*HelpForm}) {
      NewService = NewTariff = true;
      form->Show();
      QTest::qWait(250);  // until its frame is known
      QWidget& window = FaceOf(*form)->Window();
      auto* const tabs = window.findChild<QTabBar*>("TabStrip1");
      for (int page = 0; page < (tabs ? tabs->count() : 1); ++page) {
        if (tabs) tabs->setCurrentIndex(page);
        QTest::qWait(10);
        look(window, form->Name() + (tabs ? " " + tabs->tabText(page).toStdString() : ""));
      }
      if (form != &*MainForm) form->Unload();
    }
  }

  static bool CanBeReached(const QWidget& widget, const QWidget& window) {
    for (const QWidget* around = widget.parentWidget(); around && around != &window;
         around = around->parentWidget())
      if (around->inherits("QScrollArea")) return true;
    return window.rect().contains(QRect(widget.mapTo(&window, QPoint()), widget.size()));
  }
};

TEST_F(EveryWindow, StandsOnTheScreenAndCanBeUsedThere) {
  ForEachPage([](QWidget& window, const std::string& name) {
    window.grab().save(Picture("screen" + std::to_string(window.screen()->size().width()) + "-" + name));
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

TEST_F(EveryWindow, NamesWhateverTakesTheFocusOrAClick) {
  const std::set<QString> fragments = {"Minutes", "Hours", "(0 = None)", "and",   "Hrs",
                                       "Mins",    "--",    "Min(s)",     "Sec(s)"};
  ForEachPage([&](QWidget& window, const std::string& page) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      if (widget->focusPolicy() == Qt::NoFocus && !qobject_cast<QAbstractButton*>(widget)) continue;
      if (!widget->isVisible()) continue;
      const QString name = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).trimmed();
      EXPECT_TRUE(name.size() > 1 && !name.startsWith('(') && !fragments.contains(name))
          << page << ": " << widget->objectName().toStdString() << " \"" << name.toStdString() << '"';
    }
  });
}

}  // namespace
}  // namespace qel
