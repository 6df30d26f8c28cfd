// Readme, manual page and completions tell of the options that the program takes, and their examples run.
#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <vector>

#include "cli/Arguments.h"
#include "cli/Qelreport.h"

namespace qel {

namespace {

using Texts = std::vector<std::string>;

Texts Parts(const std::string& text, char divider) {
  std::istringstream stream(text);
  Texts parts;
  for (std::string part; std::getline(stream, part, divider);) parts.push_back(part);
  return parts;
}

Texts Lines(const std::string& text) { return Parts(text, '\n'); }

Texts Words(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

// "--log FILE" of "[--log FILE]", for every one in a usage.
Texts InBrackets(const std::string& usage) {
  Texts options;
  for (const auto& part : Parts(usage, '['))
    if (const auto end = part.find(']'); end != std::string::npos) options.push_back(part.substr(0, end));
  return options;
}

Texts Options() { return InBrackets(UsageText()); }
Texts Names() {
  Texts names;
  for (const auto& option : Options()) names.push_back(Words(option).front());
  return names;
}

// The shells propose the short form of help behind the long one.
Texts WithShort(Texts names) {
  names.insert(std::find(names.begin(), names.end(), "--help") + 1, "-h");
  return names;
}

// "--log" for every "log" that stands behind a mark.
Texts NamesBehind(const std::string& mark, const std::string& text) {
  Texts names;
  for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
    const auto begin = at + mark.size();
    const auto end = text.find_first_not_of("abcdefghijklmnopqrstuvwxyz", begin);
    names.push_back("--" + text.substr(begin, end - begin));
  }
  return names;
}

// "--log FILE" of "Fl -log Ar FILE", the manual page's way to write it.
std::string OptionOfManual(const std::string& markup) {
  std::string option;
  for (const auto& word : Words(markup))
    if (word != "Fl" && word != "Ar" && word != "Cm") option += option.empty() ? "-" + word : " " + word;
  return option;
}

class Documents : public Qelreport {
 protected:
  Documents() { std::filesystem::create_directory_symlink("source/share", folder.Path("share")); }

  // What bash proposes for the last of the words.
  Texts Completed(const std::string& words) const {
    folder.Put("complete", "source share/completions/qelreport.bash\nCOMP_WORDS=(qelreport " + words +
                               ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_qelreport\n"
                               "((${#COMPREPLY[@]} == 0)) || printf '%s\\n' \"${COMPREPLY[@]}\"\n");
    const Result run = Run("bash complete");
    EXPECT_EQ(run.err, "") << words;
    return Lines(run.out);
  }
};

}  // namespace

TEST_F(Documents, TheReadmeHasAllOptionsAndItsExamplesRun) {
  std::string usage;
  int examples = 0;
  for (const auto& line : Lines(folder.Content("source/README.md"))) {
    if (line.starts_with("    qelreport [") || line.starts_with("        ")) usage += line;
    if (!line.starts_with("    ./run --")) continue;
    ++examples;
    EXPECT_EQ(Run("qelreport " + line.substr(9)).status, 0) << line;
  }
  EXPECT_GT(examples, 0);
  EXPECT_EQ(InBrackets(usage), Options());
}

TEST_F(Documents, AllOfThemTellTheShortFormOfHelp) {
  EXPECT_EQ(Completed("-h"), Texts{"-h"});
  const std::pair<const char*, const char*> places[] = {
      {"source/README.md", "`-h`"},
      {"share/man/qelreport.1", "\n.Fl h\n"},
      {"share/completions/qelreport.zsh", "'-h["},
      {"share/completions/qelreport.fish", "-s h -l help "}};
  for (const auto& [document, words] : places)
    EXPECT_NE(folder.Content(document).find(words), std::string::npos) << document;
}

TEST_F(Documents, TheManualPageHasAllOptionsAndItsExamplesRun) {
  folder.Put("ModemLog.txt", folder.Content("share/samples/ModemLog.txt"));
  folder.Put("QEL.reg", folder.Content("share/samples/QEL.reg"));
  const std::string program = ".Dl ";
  Texts synopsis, explained;
  int examples = 0;
  for (const auto& line : Lines(folder.Content("share/man/qelreport.1"))) {
    if (line.starts_with(".Op ")) synopsis.push_back(OptionOfManual(line.substr(4)));
    if (line.starts_with(".It Fl ")) explained.push_back(OptionOfManual(line.substr(4)));
    if (!line.starts_with(program)) continue;
    ++examples;
    const Result run = Run(line.substr(program.size()));
    EXPECT_EQ(run.status, 0) << line << run.err;
  }
  EXPECT_GT(examples, 0);
  EXPECT_EQ(synopsis, Options());
  EXPECT_EQ(explained, Options());
}

TEST_F(Documents, BashCompletesOptionsAndTheirValues) {
  EXPECT_EQ(Completed("--"), Names());
  EXPECT_EQ(Completed("--report details --f"), (Texts{"--from", "--format"}));
  EXPECT_EQ(Completed("--log = l"), Texts{"log"});
  for (const auto& option : Options()) {
    const Texts words = Words(option);
    const std::string value = words.size() > 1 ? words[1] : "";
    Texts expected;
    if (value.empty()) expected = WithShort(Names());
    if (value == "FILE")
      expected = {"command", "complete", "err", "home", "log", "out", "rc", "share", "source", "week.reg"};
    if (value == "FILE.reg") expected = {"home", "share", "source", "week.reg"};
    if (value.find('|') != std::string::npos) expected = Parts(value, '|');
    Texts proposed = Completed(words[0] + " ''");
    if (value.starts_with("FILE")) std::sort(proposed.begin(), proposed.end());
    EXPECT_EQ(proposed, expected) << option;
  }
}

TEST_F(Documents, OtherShellsKnowTheSameOptionsAndValues) {
  const std::string zsh = folder.Content("share/completions/qelreport.zsh"),
                    fish = folder.Content("share/completions/qelreport.fish");
  EXPECT_EQ(NamesBehind("'--", zsh), Names());
  EXPECT_EQ(NamesBehind("-l ", fish), Names());
  for (const auto& option : Options()) {
    if (option.find('|') == std::string::npos) continue;
    std::string listed = Words(option)[1];
    std::replace(listed.begin(), listed.end(), '|', ' ');
    EXPECT_NE(zsh.find("(" + listed + ")"), std::string::npos) << option;
    EXPECT_NE(fish.find("'" + listed + "'"), std::string::npos) << option;
  }
}

}  // namespace qel
