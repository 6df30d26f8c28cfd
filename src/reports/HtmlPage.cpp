#include "reports/HtmlPage.h"

#include <utility>

#include "reports/HtmlStyle.h"
#include "values/CodePage.h"

namespace qel {

namespace {

bool IsControl(char c) { return (static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n') || c == 127; }

}  // namespace

std::string HtmlText(std::string_view text) { return HtmlUtf8(ToCleanUtf8(text)); }

std::string HtmlUtf8(std::string_view utf8) {
  std::string escaped;
  escaped.reserve(utf8.size());
  for (const char c : utf8) {
    if (c == '&')
      escaped += "&amp;";
    else if (c == '<')
      escaped += "&lt;";
    else if (c == '>')
      escaped += "&gt;";
    else if (c == '"')
      escaped += "&quot;";
    else if (IsControl(c))
      escaped += "&#65533;";
    else
      escaped += c;
  }
  return escaped;
}

std::string HtmlPage(const std::string& title, const std::string& body) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n<title>";
  page += HtmlText(title) + "</title>\n<style>\n" + PageStyle + "</style>\n</head>\n<body>\n";
  return page + body + "</body>\n</html>\n";
}

HtmlTable::HtmlTable(const std::string& caption, std::vector<HtmlColumn> shown) : columns(std::move(shown)) {
  text = "<div class=\"wide\"><table>\n<caption>" + HtmlText(caption) + "</caption>\n<thead><tr>";
  for (const auto& column : columns)
    text += std::string("<th scope=\"col\"") + (column.IsText ? " class=\"t\">" : ">") +
            HtmlText(column.Title) + "</th>";
  text += "</tr></thead>\n<tbody>\n";
}

void HtmlTable::AddMarkup(const std::vector<std::string>& cells) { text += RowText(cells); }

void HtmlTable::AddWideMarkup(const std::string& cell) {
  text += "<tr><td class=\"t\" colspan=\"" + std::to_string(columns.size()) + "\">" + cell + "</td></tr>\n";
}

std::string HtmlTable::Finish(const std::vector<std::string>& totals) {
  text += "</tbody>\n";
  if (!totals.empty()) text += "<tfoot>\n" + RowText(MarkupOf(totals)) + "</tfoot>\n";
  text += "</table></div>\n";
  return std::move(text);
}

std::vector<std::string> HtmlTable::MarkupOf(const std::vector<std::string>& cells) {
  std::vector<std::string> markup;
  for (const auto& cell : cells) markup.push_back(HtmlText(cell));
  return markup;
}

std::string HtmlTable::RowText(const std::vector<std::string>& markup) const {
  std::string row = "<tr>";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string cell = i < markup.size() ? markup[i] : "";
    const char* const textClass = columns[i].IsText ? " class=\"t\">" : ">";
    row += i == 0 ? std::string("<th scope=\"row\"") + textClass + cell + "</th>"
                  : std::string("<td") + textClass + cell + "</td>";
  }
  return row + "</tr>\n";
}

}  // namespace qel
