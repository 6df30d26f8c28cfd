// The help: a window beside the others, with the contents or what a search found on its left and a topic on
// its right.
#pragma once

#include <string>
#include <vector>

#include "controls/Buttons.h"
#include "controls/Lists.h"
#include "controls/TextControls.h"
#include "ui/HelpFile.h"
#include "ui/Windows.h"

namespace qel {

class frmHelp : public Window {
 public:
  explicit frmHelp(Windows& owner);

  Label lblTopics{*this, "lblTopics"};  // what the list holds
  ListBox lstTopics{*this, "lstTopics"};
  TextBox txtSearch{*this, "txtSearch"};
  Button btnSearch{*this, "btnSearch", [this] { btnSearch_Click(); }};
  Button btnContents{*this, "btnContents", [this] { ShowContents(); }};
  Button btnBack{*this, "btnBack", [this] { btnBack_Click(); }};
  Document docTopic{*this, "docTopic"};
  Button btnClose{*this, "btnClose", [this] { Unload(); }};

  // The ways into the help: a topic by its number, the contents, and the search. A number that the file lacks
  // leads to the first topic.
  void ShowHelp(int number);
  void ShowHelpContents();
  void ShowHelpSearch();

 private:
  void Form_Load() override;
  void ShowContents();
  void GoTo(int number);
  void List(const std::string& heading);
  void AddEntry(const std::string& text, int number);
  void SelectEntry();
  void ShowTopic(int number);
  void lstTopics_Click();
  void docTopic_LinkClick(const std::string& target);
  void btnSearch_Click();
  void btnBack_Click();

  std::vector<HelpTopic> topics;
  // The topic of each entry of the list. A chapter stands for its first.
  std::vector<int> entries;
  int shown = 0;             // the topic's number; 0 for none
  std::vector<int> visited;  // the topics before it
};

}  // namespace qel
