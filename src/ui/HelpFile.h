// The help file: its topics by number, by chapter, and by the words that they hold.
//
// The file is text. "= Name" begins a chapter, "== 51 Name" a topic of that number; what follows up to the
// next one is the topic's page in simple HTML, with links to other topics as <a href="#33">. Lines before the
// first chapter are nobody's.
#pragma once

#include <string>
#include <vector>

namespace qel {

struct HelpTopic {
  int Number = 0;
  std::string Title;
  std::string Chapter;
  std::string Body;  // HTML
};

// The topics in the order of the file, those of a chapter together. None where the file cannot be read.
std::vector<HelpTopic> ReadHelpTopics(const std::string& path);

// The topic of a number; nullptr where there is none.
const HelpTopic* FindHelpTopic(const std::vector<HelpTopic>& topics, int number);

// The topics that hold all of the words, or parts of words, in the title or in the text, whatever their case;
// those with most of the words in the title first. None for no words.
std::vector<const HelpTopic*> SearchHelp(const std::vector<HelpTopic>& topics, const std::string& words);

}  // namespace qel
