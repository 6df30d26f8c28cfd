#include <QLineEdit>
#include <utility>

#include "SampleForm.h"

namespace qel {
namespace {

// The field of the start date holds the focus while its text is bad.
class Focus : public DesktopTest {
 protected:
  Focus() {
    form.inputStarting.LostFocus = [this] {
      ++lost;
      if (form.inputStarting.Text == "bad") form.inputStarting.SetFocus();
    };
    form.btnOK.Click = form.btnRun.Click = [this] { ++clicks; };
    form.inputStarting.SetFocus();
    Settle();
  }
  int lost = 0, clicks = 0;
};

TEST_F(Focus, FollowsTheModelAndTheAccessKey) {
  EXPECT_TRUE(Get<QLineEdit>("inputStarting").hasFocus());
  QTest::keyClick(&FaceOf(form)->Window(), Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(form.txtName.HasFocus());
}

TEST_F(Focus, ABadFieldKeepsItAndSwallowsTheClickOfAButtonThatWantsIt) {
  form.inputStarting.Text = "bad";
  Click(Get<QPushButton>("btnRun"));
  EXPECT_EQ(std::exchange(clicks, 0), 1);
  EXPECT_EQ(lost, 0);
  Click(Get<QPushButton>("btnOK"));
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(lost, 1) << "the field is asked once";
  EXPECT_TRUE(Get<QLineEdit>("inputStarting").hasFocus());
  QTest::keyClick(&Get<QLineEdit>("inputStarting"), Qt::Key_Tab);
  Settle();
  EXPECT_EQ(lost, 2);
  EXPECT_TRUE(Get<QLineEdit>("inputStarting").hasFocus());
  form.inputStarting.Text = "good";
  Click(Get<QPushButton>("btnOK"));
  EXPECT_EQ(clicks, 1);
}

TEST_F(Focus, ADisabledControlHandsItOnUnlessItIsBackAtOnce) {
  form.btnOK.Click = [this] {
    form.btnOK.Enabled = false;
    form.btnOK.Enabled = ++clicks == 1;
  };
  Click(Get<QPushButton>("btnOK"));
  EXPECT_TRUE(Get<QPushButton>("btnOK").hasFocus());
  EXPECT_TRUE(form.btnOK.HasFocus());
  Click(Get<QPushButton>("btnOK"));
  EXPECT_TRUE(form.ActiveControl()->CanHaveFocus());
  EXPECT_FALSE(form.btnOK.HasFocus());
}

TEST_F(Focus, TheTabKeyPassesThroughListsAndChoosesNothingThere) {
  std::string chosen;
  form.lstNames.AddItem("a");
  form.lstNames.Click = [&chosen] { chosen += "name "; };
  form.ListView1.SetColumns({{"A", 1000}});
  form.ListView1.SetRows({{"1", {}}, {"2", {}}});
  form.ListView1.ItemClick = [&chosen] { chosen += "row "; };
  form.optTips.SetFocus();
  std::string passed;
  for (int i = 0; i < 6; ++i) {
    Settle();
    QTest::keyClick(FaceOf(form)->Window().focusWidget(), Qt::Key_Tab);
    passed += form.ActiveControl()->Name() + ' ';
  }
  EXPECT_EQ(passed, "optFormat lstNames lstUnit lstFree ListView1 TabStrip1 ");
  EXPECT_EQ(chosen, "");
}

TEST_F(Focus, TheWheelChoosesOnlyWhereTheFocusIs) {
  auto& list = Get<QComboBox>("lstUnit");
  for (const char* unit : {"minute", "hour"}) form.lstUnit.AddItem(unit);
  form.lstUnit.SetListIndex(0);
  const auto turn = [&list] {
    const QPointF at = list.rect().center();
    QWheelEvent wheel(at, list.mapToGlobal(at), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&list, &wheel);
  };
  turn();
  EXPECT_EQ(form.lstUnit.Text(), "minute");
  form.lstUnit.SetFocus();
  turn();
  EXPECT_EQ(form.lstUnit.Text(), "hour");
}

TEST_F(Focus, TheMouseIsSeenOverControlsAndBesideThem) {
  std::string seen;
  form.lblTitle.MouseMove = [&seen] { seen += "label "; };
  form.MouseMove = [&seen] { seen += "form "; };
  QTest::mouseMove(&Get<QLabel>("lblTitle"), {5, 5});
  Settle();
  EXPECT_EQ(seen, "label ");
  QTest::mouseMove(&FaceOf(form)->Window(), {1, FaceOf(form)->Window().height() / 2});
  Settle();
  EXPECT_EQ(seen, "label form ");
}

}  // namespace
}  // namespace qel
