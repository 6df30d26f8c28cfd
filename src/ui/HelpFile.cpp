#include "ui/HelpFile.h"

#include <algorithm>
#include <sstream>
#include <string_view>
#include <utility>

#include "core/ErrorHandler.h"
#include "platform/Files.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr std::string_view ChapterMark = "= ", TopicMark = "== ";

// "51 General"
HelpTopic TopicOf(std::string_view heading, const std::string& chapter) {
  const auto blank = std::min(heading.find(' '), heading.size());
  return {static_cast<int>(Val(heading.substr(0, blank))), std::string(Trim(heading.substr(blank))), chapter,
          ""};
}

// What is to be read of a page: its text without the marks.
std::string ReadableText(const std::string& html) {
  std::string text;
  bool inMark = false;
  for (const char c : html) {
    if (c == '<') inMark = true;
    text += inMark ? ' ' : c;
    if (c == '>') inMark = false;
  }
  return text;
}

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream stream(UpperCase(text));
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

}  // namespace

std::vector<HelpTopic> ReadHelpTopics(const std::string& path) {
  std::vector<HelpTopic> topics;
  std::string chapter;
  IgnoreErrors([&] {
    LineReader file(path);
    for (std::string_view line; file.Next(line);) {
      if (line.starts_with(TopicMark))
        topics.push_back(TopicOf(line.substr(TopicMark.size()), chapter));
      else if (line.starts_with(ChapterMark))
        chapter = Trim(line.substr(ChapterMark.size()));
      else if (!topics.empty())
        topics.back().Body.append(line).append("\n");
    }
  });
  return topics;
}

const HelpTopic* FindHelpTopic(const std::vector<HelpTopic>& topics, int number) {
  const auto found = std::find_if(topics.begin(), topics.end(),
                                  [number](const HelpTopic& topic) { return topic.Number == number; });
  return found == topics.end() ? nullptr : &*found;
}

std::vector<const HelpTopic*> SearchHelp(const std::vector<HelpTopic>& topics, const std::string& words) {
  const std::vector<std::string> wanted = WordsOf(words);
  const auto wordsIn = [&wanted](const std::string& text) {
    return std::count_if(wanted.begin(), wanted.end(),
                         [&text](const std::string& word) { return text.find(word) != std::string::npos; });
  };
  std::vector<std::pair<std::ptrdiff_t, const HelpTopic*>> ranked;
  for (const HelpTopic& topic : topics) {
    const std::string title = UpperCase(topic.Title);
    if (!wanted.empty() && wordsIn(title + '\n' + UpperCase(ReadableText(topic.Body))) == std::ssize(wanted))
      ranked.emplace_back(wordsIn(title), &topic);
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<const HelpTopic*> found;
  for (const auto& [rank, topic] : ranked) found.push_back(topic);
  return found;
}

}  // namespace qel
