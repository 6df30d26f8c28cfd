#include "ui/frmHelp.h"

#include <algorithm>

#include "ui/HelpNumbers.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr char Indent[] = "    ";

std::string AsHtml(const std::string& text) {
  std::string html;
  for (const char c : text) html += c == '<' ? "&lt;" : c == '&' ? "&amp;" : std::string(1, c);
  return html;
}

std::string NoHelp(const std::string& path) {
  return "<h2>No help</h2><p>The help file could not be read. It belongs here:</p><p>" +
         AsHtml(PathText(path)) + "</p>";
}

}  // namespace

frmHelp::frmHelp(Windows& owner) : Window("frmHelp", owner) {
  HelpContextID = HelpUsingHelp;
  StandsAside = true;
  lstTopics.Click = [this] { lstTopics_Click(); };
  txtSearch.KeyDown = [this](KeyPress& press) {
    if (press.key != Key::Enter) return;
    press.Handled = true;
    btnSearch_Click();
  };
  btnBack.Enabled = false;
  docTopic.LinkClick = [this](const std::string& target) { docTopic_LinkClick(target); };
}

void frmHelp::Form_Load() {
  topics = ReadHelpTopics(places.HelpFile);
  if (topics.empty()) docTopic.Html = NoHelp(places.HelpFile);
  ShowContents();
}

void frmHelp::List(const std::string& heading) {
  lblTopics.Caption = heading;
  lstTopics.Clear();
  entries.clear();
}

void frmHelp::AddEntry(const std::string& text, int number) {
  entries.push_back(number);
  lstTopics.AddItem(text);
}

// All topics under their chapters.
void frmHelp::ShowContents() {
  List("Contents");
  const std::string* chapter = nullptr;
  for (const HelpTopic& topic : topics) {
    if (!chapter || *chapter != topic.Chapter) AddEntry(topic.Chapter, topic.Number);
    chapter = &topic.Chapter;
    AddEntry(Indent + topic.Title, topic.Number);
  }
  SelectEntry();
}

void frmHelp::btnSearch_Click() {
  const auto found = SearchHelp(topics, txtSearch.Text);
  const std::string count = NumberText(static_cast<double>(found.size()));
  List(found.empty() ? "No topic found" : found.size() == 1 ? "1 topic found" : count + " topics found");
  for (const HelpTopic* topic : found) AddEntry(topic->Title, topic->Number);
  if (!found.empty()) GoTo(found.front()->Number);
}

// The entry of the topic itself stands behind that of its chapter.
void frmHelp::SelectEntry() {
  const auto entry = std::find(entries.rbegin(), entries.rend(), shown);
  if (entry != entries.rend()) lstTopics.SetListIndex(static_cast<int>(entries.rend() - entry) - 1);
}

void frmHelp::ShowTopic(int number) {
  const HelpTopic* topic = FindHelpTopic(topics, number);
  if (!topic) return;
  shown = number;
  docTopic.Html = "<h2>" + AsHtml(topic->Title) + "</h2>" + topic->Body;
  btnBack.Enabled = !visited.empty();
}

// To a topic, from which btnBack comes back.
void frmHelp::GoTo(int number) {
  if (topics.empty()) return;
  const HelpTopic* topic = FindHelpTopic(topics, number);
  const int wanted = topic ? number : topics.front().Number;
  if (wanted != shown) {
    if (shown != 0) visited.push_back(shown);
    ShowTopic(wanted);
  }
  SelectEntry();
}

// The choice stays on the entry, be it a chapter's; a choice that follows the topic shown changes nothing.
void frmHelp::lstTopics_Click() {
  const int index = lstTopics.ListIndex();
  const int chosen = index < 0 ? shown : entries[static_cast<std::size_t>(index)];
  if (chosen == shown) return;
  visited.push_back(shown);
  ShowTopic(chosen);
}

void frmHelp::docTopic_LinkClick(const std::string& target) {
  if (target.starts_with('#')) GoTo(static_cast<int>(Val(target.substr(1))));
}

void frmHelp::btnBack_Click() {
  if (visited.empty()) return;
  const int before = visited.back();
  visited.pop_back();
  ShowTopic(before);
  SelectEntry();
}

void frmHelp::ShowHelp(int number) {
  Show();
  GoTo(number);
}

void frmHelp::ShowHelpContents() {
  Show();
  ShowContents();
  GoTo(0);
}

void frmHelp::ShowHelpSearch() {
  ShowHelpContents();
  txtSearch.SetFocus();
}

}  // namespace qel
