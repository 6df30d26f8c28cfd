// What every page is made of: the frame with its style, text and tables. A page stands alone, asks nothing of
// the network and runs nothing; its markup is well-formed XML too.
//
// Text comes in as Windows-1252; whoever writes the page out turns it into the UTF-8 that the page declares.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qel {

// Text as it stands between tags and between the quotes of an attribute. A control character, which no page
// can hold, becomes the replacement character.
std::string HtmlText(std::string_view text);

// The whole page. `title` is text, `body` markup.
std::string HtmlPage(const std::string& title, const std::string& body);

struct HtmlColumn {
  std::string Title;
  bool IsText = false;  // stands left; figures stand right
};

// A table whose first cells head their rows. All that is given is text.
class HtmlTable {
 public:
  HtmlTable(const std::string& caption, std::vector<HtmlColumn> columns);

  // A row may end early; cells that have no column are left out.
  void AddRow(const std::vector<std::string>& cells);

  // The whole table, below it the row of totals.
  std::string Finish(const std::vector<std::string>& totals = {});

 private:
  std::string RowText(const std::vector<std::string>& cells) const;

  std::vector<HtmlColumn> columns;
  std::string text;
};

}  // namespace qel
