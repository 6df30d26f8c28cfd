#include <algorithm>
#include <sstream>
#include <vector>

#include "reports/DetailReport.h"
#include "reports/HtmlReport.h"
#include "reports/SummaryReport.h"
#include "reports/WeekLog.h"

namespace qel {

namespace {

using HtmlReport = WeekLog;

// What keeps a page from being well-formed XML, told by the text it is found at; empty where nothing does.
class Wellformedness {
 public:
  std::string FaultOf(const std::string& page) {
    std::size_t at = page.starts_with("<!DOCTYPE html>") ? 15 : 0;
    while (at < page.size()) {
      if (page[at] == '&' && !IsEntity(page.substr(at, 9))) return page.substr(at, 30);
      if (page[at] == '>' || static_cast<unsigned char>(page[at]) < '\n') return page.substr(at, 30);
      if (page[at] != '<') {
        ++at;
        continue;
      }
      const std::size_t end = page.find('>', at);
      if (end == std::string::npos || !Takes(page.substr(at + 1, end - at - 1))) return page.substr(at, 60);
      at = end + 1;
    }
    return open.empty() ? "" : open.back() + " is left open";
  }

 private:
  static bool IsEntity(const std::string& text) {
    for (const char* entity : {"&amp;", "&lt;", "&gt;", "&quot;", "&#65533;"})
      if (text.starts_with(entity)) return true;
    return false;
  }

  bool Takes(const std::string& tag) {
    if (tag.find('<') != std::string::npos || std::count(tag.begin(), tag.end(), '"') % 2 != 0) return false;
    if (tag.starts_with("/")) {
      if (open.empty() || open.back() != tag.substr(1)) return false;
      open.pop_back();
    } else if (!tag.ends_with("/")) {
      open.push_back(tag.substr(0, tag.find(' ')));
    }
    return true;
  }

  std::vector<std::string> open;
};

bool Holds(const std::string& page, const std::string& text) { return page.find(text) != std::string::npos; }

// The cells between the tags of the last row of totals.
std::string LastTotals(const std::string& page) {
  std::string words;
  bool inTag = false;
  for (const char c : page.substr(page.rfind("<tfoot>"))) {
    if (c == '<') words += ' ';
    inTag = c == '<' || (inTag && c != '>');
    if (!inTag && c != '>') words += c;
  }
  return words.substr(0, words.find("  \n"));
}

}  // namespace

TEST_F(HtmlReport, PagesAreWellFormedAndStandAlone) {
  Services[0].ServiceName = "<b>&\"x\" \x01";
  for (const std::string variant : {"costs", "blocks", "nocosts", "empty"}) {
    if (variant == "blocks") Services[1].Block = 15;
    if (variant == "nocosts") CalcCosts = false;
    if (variant == "empty") SetPeriod(DateSerial(1999, 3, 5), DateSerial(1999, 3, 5));
    Analyse();
    for (const std::string& page : {SummaryPage(), DetailsPage(), StatisticsPage()}) {
      EXPECT_EQ(Wellformedness().FaultOf(page), "") << variant;
      for (auto at = page.find("<figure>"); at != std::string::npos; at = page.find("<figure>", at + 1))
        EXPECT_EQ(page.substr(at + 9, 12), "<figcaption>") << "a caption comes first or last";
      for (const char* foreign : {"http", "<script", "@import", "src=", "href="})
        EXPECT_FALSE(Holds(page, foreign)) << variant << ", " << foreign;
    }
    EXPECT_EQ(Holds(DetailsPage(), "&lt;b&gt;&amp;&quot;x&quot; &#65533;"), variant != "empty") << variant;
    EXPECT_EQ(Holds(SummaryPage(), "Cost"), variant == "costs" || variant == "blocks") << variant;
  }
}

TEST_F(HtmlReport, TotalsAreThoseOfTheTextReports) {
  Analyse();
  const std::string summary = SummaryPage(), details = DetailsPage();
  const std::pair<std::string, std::string> reports[] = {
      {DisplaySummaryReport().ReportText, summary.substr(0, summary.find("<figure>"))},
      {DisplayDetailReport().ReportText, details}};
  for (const auto& [text, page] : reports) {
    std::istringstream words(text.substr(text.rfind("TOTALS:")));
    for (std::string word; words >> word;) EXPECT_TRUE(Holds(LastTotals(page), " " + word)) << word;
  }
  // Cost by service, in its three parts.
  EXPECT_TRUE(Holds(summary, "<td>$1.69</td><td>$2.74</td><td>$0.65</td><td>$5.08</td></tr>\n</tfoot>"))
      << summary;
}

TEST_F(HtmlReport, APeriodWithoutConnectionsGetsASentenceAndNoCharts) {
  SetPeriod(DateSerial(1999, 3, 5), DateSerial(1999, 3, 5));
  Analyse();
  for (const std::string& page : {SummaryPage(), DetailsPage()}) {
    EXPECT_TRUE(Holds(page, "<p>No connections were made during this period.</p>"));
    EXPECT_FALSE(Holds(page, "<svg") || Holds(page, "<table")) << page;
  }
}

TEST_F(HtmlReport, ErrorsAndLimitsAreToldOnThePage) {
  Analyse();
  EXPECT_TRUE(Holds(SummaryPage(), "Errors found in log"));
  EXPECT_TRUE(Holds(DetailsPage(), "<td class=\"t\">ERROR - No Disconnect Entry - R:64K</td>"));
  ShowErrors = false;
  ConnectionsExceeded = true;
  EXPECT_FALSE(Holds(DetailsPage(), "Errors found in log") || Holds(DetailsPage(), "No Disconnect Entry"));
  EXPECT_TRUE(Holds(SummaryPage(), "Report is incomplete"));
}

}  // namespace qel
