// What every page is made of: the frame with its style, text and tables. A page stands alone, asks nothing of
// the network and runs nothing; its markup is well-formed XML too.
//
// Text comes in as Windows-1252, and pages and markup are in UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qel {

// Text as it stands between tags and between the quotes of an attribute. A control character, which no page
// can hold, becomes the replacement character.
std::string HtmlText(std::string_view text);

// The same for a text that is UTF-8 already, as file paths are.
std::string HtmlUtf8(std::string_view utf8);

// The whole page. `title` is text, `body` markup.
std::string HtmlPage(const std::string& title, const std::string& body);

struct HtmlColumn {
  std::string Title;
  bool IsText = false;  // stands left; figures stand right
};

// A table whose first cells head their rows. All that is given is text, unless it is called markup.
class HtmlTable {
 public:
  HtmlTable(const std::string& caption, std::vector<HtmlColumn> columns);

  // A row may end early; cells that have no column are left out.
  void AddRow(const std::vector<std::string>& cells) { AddMarkup(MarkupOf(cells)); }
  void AddMarkup(const std::vector<std::string>& cells);
  // A row of one cell as wide as the table.
  void AddWideMarkup(const std::string& cell);

  // The whole table, below it the row of totals.
  std::string Finish(const std::vector<std::string>& totals = {});

 private:
  static std::vector<std::string> MarkupOf(const std::vector<std::string>& cells);
  std::string RowText(const std::vector<std::string>& markup) const;

  std::vector<HtmlColumn> columns;
  std::string text;
};

}  // namespace qel
