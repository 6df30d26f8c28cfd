// The help: a window beside the others, with the contents or what a search found on its left and a topic on
// its right.
#pragma once

#include <string>
#include <vector>

#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/Lists.h"
#include "controls/TextControls.h"
#include "ui/HelpTopics.h"

namespace qel {

class frmHelp : public Form {
 public:
  frmHelp();

  Label lblTopics{*this, "lblTopics"};  // what the list holds
  ListBox lstTopics{*this, "lstTopics"};
  TextBox txtSearch{*this, "txtSearch"};
  Button btnSearch{*this, "btnSearch"};
  Button btnContents{*this, "btnContents"};
  Button btnBack{*this, "btnBack"};
  Document docTopic{*this, "docTopic"};
  Button btnClose{*this, "btnClose"};

  // Lists all topics under their chapters.
  void ShowContents();
  // Goes to a topic, from which btnBack comes back. One that the file lacks leads to the first.
  void GoTo(int number);

 private:
  void Form_Load() override;
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

extern TheForm<frmHelp> HelpForm;

// The ways into the help: its contents, the search, the help on help, and a topic by its number.
void ShowHelpContents();
void ShowHelpSearch();
void ShowHelpOnHelp();
void ShowHelp(int context);

}  // namespace qel
