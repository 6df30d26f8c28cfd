// Tool bar, status bar, progress bar, tabs.

#include <QAction>
#include <QLabel>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QVariant>
#include <algorithm>
#include <vector>

#include "controls/Bars.h"
#include "desktop/ControlFace.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

// The actions of the bar are the model's buttons by position, separators among them.
class ToolbarFace : public ControlFace {
 public:
  ToolbarFace(FormFace& form, Toolbar& model, QToolBar& bar)
      : ControlFace(form, model, &bar), model(model), bar(bar) {
    bar.setContextMenuPolicy(Qt::PreventContextMenu);
    ForEachButton([this](ToolButton& button, QAction& action) {
      connect(&action, &QAction::triggered, this,
              [this, &button] { Tell([this, &button] { this->model.UserButtonClick(button.Key); }); });
    });
  }

 private:
  template <typename Visit>
  void ForEachButton(Visit visit) {
    const auto actions = bar.actions();
    const auto count = std::min(model.Buttons().size(), static_cast<std::size_t>(actions.size()));
    for (std::size_t i = 0; i < count; ++i) {
      ToolButton& button = model.Buttons()[i];
      if (!button.IsSeparator()) visit(button, *actions[static_cast<qsizetype>(i)]);
    }
  }

  void Pull() override {
    ControlFace::Pull();
    ForEachButton([](ToolButton& button, QAction& action) {
      if (button.ToolTipText().empty()) button.ToolTipText = FromQt(action.toolTip());
    });
  }

  void Push() override {
    ControlFace::Push();
    ForEachButton([this](ToolButton& button, QAction& action) {
      action.setEnabled(button.Enabled);
      action.setVisible(button.Visible);
      action.setToolTip(
          PlainToolTip(WithKeys(ToQt(button.ToolTipText()), action.property("keys").toString())));
      if (button.Pressed) action.setCheckable(true);
      action.setChecked(button.Pressed);
      if (auto* shown = qobject_cast<QToolButton*>(bar.widgetForAction(&action)))
        shown->setAutoRaise(model.Flat);
    });
  }

  Toolbar& model;
  QToolBar& bar;
};

// The first panel takes the room that the others leave.
class StatusBarFace : public ControlFace {
 public:
  StatusBarFace(FormFace& form, StatusBar& model, QStatusBar& bar)
      : ControlFace(form, model, &bar), model(model), bar(bar) {}

 private:
  void Push() override {
    ControlFace::Push();
    const auto& texts = model.Panels();
    while (panels.size() > texts.size()) {
      bar.removeWidget(panels.back());
      panels.back()->deleteLater();
      panels.pop_back();
    }
    while (panels.size() < texts.size()) panels.push_back(NewPanel());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      panels[i]->setText(LinesToQt(texts[i]));
      panels[i]->setFont(bar.font());
      if (i > 0) panels[i]->setVisible(!texts[i].empty());
    }
  }

  QLabel* NewPanel() {
    auto* const panel = new QLabel;
    panel->setObjectName("qt_panel");
    panel->setTextFormat(Qt::PlainText);
    const bool isFirst = panels.empty();
    if (isFirst)
      panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long text widens no window
    else
      panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    bar.addWidget(panel, isFirst ? 1 : 0);
    return panel;
  }

  StatusBar& model;
  QStatusBar& bar;
  std::vector<QLabel*> panels;
};

class ProgressFace : public ControlFace {
 public:
  // A bar with the property "inStatusBar" moves to the right end of the window's status bar.
  ProgressFace(FormFace& form, ProgressBar& model, QProgressBar& bar)
      : ControlFace(form, model, &bar), model(model), bar(bar) {
    auto* const status = form.Window().findChild<QStatusBar*>();
    if (status && bar.property("inStatusBar").toBool()) status->addPermanentWidget(&bar);
  }

 private:
  void Push() override {
    ControlFace::Push();
    bar.setRange(model.Min, model.Max);
    bar.setValue(model.Value());
  }
  ProgressBar& model;
  QProgressBar& bar;
};

// Tabs alone, or tabs with their pages: the design gives both the same calls for a tab.
template <class Shown>
class TabFace : public ControlFace {
 public:
  TabFace(FormFace& form, TabStrip& model, Shown& strip)
      : ControlFace(form, model, &strip), model(model), strip(strip) {
    connect(&strip, &Shown::currentChanged, this,
            [this](int tab) { Tell([this, tab] { this->model.UserSelectTab(tab + 1); }); });
  }

 private:
  void Pull() override {
    ControlFace::Pull();
    if (!model.Tabs().empty()) return;
    std::vector<Tab> tabs;
    for (int i = 0; i < strip.count(); ++i)
      tabs.push_back({FromQt(strip.tabText(i)), FromQt(strip.tabToolTip(i))});
    model.SetTabs(std::move(tabs));
  }

  void Push() override {
    ControlFace::Push();
    const QSignalBlocker silent(strip);
    const int count = static_cast<int>(model.Tabs().size());
    while (strip.count() > count) strip.removeTab(strip.count() - 1);
    while (strip.count() < count) AddTab();
    for (int i = 0; i < count; ++i) {
      const Tab& tab = model.Tabs()[static_cast<std::size_t>(i)];
      strip.setTabText(i, ToQt(tab.Caption));
      strip.setTabToolTip(i, PlainToolTip(ToQt(tab.ToolTipText)));
    }
    strip.setCurrentIndex(model.SelectedTab() - 1);
  }

  void AddTab() {
    if constexpr (std::is_same_v<Shown, QTabBar>)
      strip.addTab(QString());
    else
      strip.addTab(new QWidget, QString());
  }

  TabStrip& model;
  Shown& strip;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfBar(FormFace& form, Control& control) {
  if (auto face = FaceOf<ToolbarFace, Toolbar, QToolBar>(form, control)) return face;
  if (auto face = FaceOf<StatusBarFace, StatusBar, QStatusBar>(form, control)) return face;
  if (auto face = FaceOf<ProgressFace, ProgressBar, QProgressBar>(form, control)) return face;
  if (auto face = FaceOf<TabFace<QTabBar>, TabStrip, QTabBar>(form, control)) return face;
  return FaceOf<TabFace<QTabWidget>, TabStrip, QTabWidget>(form, control);
}

}  // namespace qel
