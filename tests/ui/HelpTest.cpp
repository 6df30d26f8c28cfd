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

class HelpTest : public WindowTest {};

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
