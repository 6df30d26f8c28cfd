#include <gtest/gtest.h>
#include <set>

#include "core/ErrorHandler.h"
#include "modemlog/LogMessages.h"
#include "support/WindowTest.h"
#include "ui/HelpContexts.h"
#include "ui/HelpTopics.h"

namespace qel {
namespace {

const std::string Share = QEL_SOURCE_DIR "/share/";

class HelpTest : public WindowTest {
 protected:
  void PutHelp() {
    folder.Put("QEL.HLP",
               "# no topic\r\n= First\r\n== 3 Blocks & Units\r\n<p>See <a href=\"#12\">costs</a>.</p>\r\n"
               "== 7 Caps\r\nA block has a cap.\r\n= Last\r\n== 12 Costs\r\n<b>Blocks</b> cost.\r\n");
  }
  static std::string Listed() {
    std::string entries = HelpForm->lblTopics.Caption() + ":";
    for (const auto& entry : HelpForm->lstTopics.Items()) entries += entry + ";";
    return entries;
  }
  static std::string Shown() { return HelpForm->docTopic.Html().substr(0, 10); }
};

TEST_F(HelpTest, TopicsAreReachedByTheContentsByLinksAndBackAgain) {
  PutHelp();
  Show(usable);
  MainForm->mnuTopics.UserClick();
  EXPECT_EQ(Listed(), "Contents:First;    Blocks & Units;    Caps;Last;    Costs;");
  EXPECT_EQ(HelpForm->docTopic.Html(), "<h2>Blocks &amp; Units</h2><p>See <a href=\"#12\">costs</a>.</p>\n");
  EXPECT_EQ(HelpForm->lstTopics.ListIndex(), 1);
  EXPECT_FALSE(HelpForm->btnBack.Enabled);

  HelpForm->docTopic.UserLink("#12");
  EXPECT_EQ(Shown(), "<h2>Costs<");
  EXPECT_EQ(HelpForm->lstTopics.ListIndex(), 4);
  HelpForm->lstTopics.UserChoose(3);  // a chapter stands for its first topic
  EXPECT_EQ(HelpForm->lstTopics.ListIndex(), 3);
  HelpForm->lstTopics.UserChoose(2);
  EXPECT_EQ(Shown(), "<h2>Caps</");
  HelpForm->btnBack.UserClick();
  EXPECT_EQ(Shown(), "<h2>Costs<");
  HelpForm->btnBack.UserClick();
  EXPECT_EQ(Shown(), "<h2>Blocks");
  EXPECT_FALSE(HelpForm->btnBack.Enabled);
  MainForm->mnuReadme.UserClick();
  EXPECT_TRUE(host.Showed("document: " + folder.Path("readme.htm")));
}

TEST_F(HelpTest, ASearchListsTheTopicsThatHoldAllWordsTheBestTitlesFirst) {
  PutHelp();
  MainForm->mnsSearchHelp.Click();
  EXPECT_TRUE(HelpForm->txtSearch.HasFocus());
  const struct {
    const char *words, *found;
  } cases[] = {
      {"BLOCK", "3 topics found:Blocks & Units;Caps;Costs;"},
      {"cap block", "1 topic found:Caps;"},
      {"costs", "2 topics found:Costs;Blocks & Units;"},
      {"href", "No topic found:"},
      {" ", "No topic found:"},
  };
  for (const auto& c : cases) {
    HelpForm->txtSearch.UserText(c.words);
    KeyPress enter{.key = Key::Enter};
    HelpForm->txtSearch.UserKey(enter);
    EXPECT_EQ(Listed(), c.found) << c.words;
  }
  HelpForm->btnContents.UserClick();
  EXPECT_EQ(Listed().substr(0, 14), "Contents:First");
}

TEST_F(HelpTest, AFileThatIsMissingOrEmptyIsToldInTheWindow) {
  for (const bool empty : {false, true}) {
    if (empty) folder.Put("QEL.HLP", "");
    HelpForm.Reset();
    ShowHelp(HelpPurge);
    EXPECT_NE(HelpForm->docTopic.Html().find("QEL.HLP"), std::string::npos);
    EXPECT_EQ(Listed(), "Contents:");
  }
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(HelpTest, ComingBackFromItIsNoComingToTheFront) {
  folder.Put("ModemLog.txt", "no date\r\n");
  Show("no date\r\n");
  ASSERT_EQ(host.messages.size(), 1u) << "the log is none";
  ShowHelpContents();
  MainForm->Activate();
  ShowHelpContents();
  HelpForm->btnClose.UserClick();
  MainForm->Activate();
  EXPECT_EQ(host.messages.size(), 1u);
  ShowHelpContents();
  MainForm->Unload();
  EXPECT_FALSE(HelpForm.IsLoaded()) << "it goes with the program";
}

TEST_F(HelpTest, TheActiveControlsTopicComesBeforeTheWindows) {
  PutHelp();
  PurgeForm->HelpContextID = 7;
  PurgeForm->Show();
  ShowHelpOn(*PurgeForm);
  EXPECT_EQ(Shown(), "<h2>Caps</");
  PurgeForm->MaskEdBox1.HelpContextID = 12;
  ShowHelpOn(*PurgeForm);
  EXPECT_EQ(Shown(), "<h2>Costs<");
}

// The help, the tips and the page that come with the program.

TEST(SharedHelp, EveryTopicHasItsOwnNumberAndEveryLinkLeadsSomewhere) {
  const auto topics = ReadHelpTopics(Share + "QEL.HLP");
  std::set<int> numbers;
  for (const HelpTopic& topic : topics) {
    EXPECT_TRUE(topic.Number > 0 && numbers.insert(topic.Number).second) << topic.Title;
    EXPECT_FALSE(topic.Title.empty() || topic.Chapter.empty() || topic.Body.empty()) << topic.Number;
  }
  const std::string link = "<a href=\"#";
  for (const HelpTopic& topic : topics)
    for (auto at = topic.Body.find("<a "); at != std::string::npos; at = topic.Body.find("<a ", at + 1)) {
      EXPECT_EQ(topic.Body.substr(at, link.size()), link) << topic.Title;
      EXPECT_TRUE(numbers.contains(std::atoi(topic.Body.c_str() + at + link.size()))) << topic.Title;
    }
}

TEST_F(HelpTest, WhateverTheProgramAsksForIsThere) {
  const auto topics = ReadHelpTopics(Share + "QEL.HLP");
  Show("");
  LogExists = false;
  ShowLogMissing();
  std::set<int> asked = {host.messages.back().HelpContext, ErrorHelpTopic};
  for (const Form* form : std::initializer_list<const Form*>{
           &*AboutForm, &*FileRepairForm, &*FindForm, &*HelpForm, &*MainForm, &*PreConfigureForm, &*PurgeForm,
           &*ReportForm, &*SplashForm, &*TariffForm, &*TipForm, &*ViewLogForm})
    asked.insert(form->HelpContextID);
  const auto visit = [&asked](Form& form, TabStrip& tabs, int count) {
    form.Show();
    for (int tab = 1; tab <= count; ++tab) {
      tabs.UserSelectTab(tab);
      asked.insert(form.HelpContextID);
    }
  };
  visit(*SetupForm, SetupForm->TabStrip1, 8);
  NewService = true;
  visit(*ServiceForm, ServiceForm->TabStrip1, 4);
  EXPECT_EQ(asked.size(), 25u) << "a topic of its own for each; the splash has that of About";
  for (const int number : asked) EXPECT_NE(FindHelpTopic(topics, number), nullptr) << number;
}

TEST(SharedHelp, TheMarksOfEveryPageAreClosedInOrder) {
  for (const HelpTopic& topic : ReadHelpTopics(Share + "QEL.HLP")) {
    std::vector<std::string> open;
    for (auto at = topic.Body.find('<'); at != std::string::npos; at = topic.Body.find('<', at + 1)) {
      const std::string mark = topic.Body.substr(at + 1, topic.Body.find_first_of(" >", at) - at - 1);
      if (!mark.starts_with('/')) {
        open.push_back(mark);
      } else {
        ASSERT_TRUE(!open.empty() && "/" + open.back() == mark) << topic.Title << " <" << mark << ">";
        open.pop_back();
      }
    }
    EXPECT_TRUE(open.empty()) << topic.Title;
  }
}

TEST(SharedHelp, TheTipsAreManyAndEachFitsItsWindow) {
  LineReader file(Share + "QelTips.txt");
  std::set<std::string> tips;
  for (std::string_view tip; file.Next(tip);) {
    EXPECT_TRUE(tip.size() > 20 && tip.size() <= 200 && tip.starts_with("...that ")) << tip;
    EXPECT_TRUE(tips.emplace(tip).second) << "twice: " << tip;
  }
  EXPECT_GE(tips.size(), 36u);
}

}  // namespace
}  // namespace qel
