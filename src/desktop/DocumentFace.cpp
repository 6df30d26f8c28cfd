// Pages to read, with links.

#include <QTextBrowser>
#include <QUrl>
#include <optional>
#include <string>

#include "controls/TextControls.h"
#include "desktop/ControlFace.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

constexpr char PageStyle[] =
    "h2 { margin-top: 4px; margin-bottom: 10px; }"
    "h3 { margin-top: 14px; margin-bottom: 4px; }"
    "p, ul, ol { margin-top: 6px; margin-bottom: 6px; }"
    "li { margin-bottom: 4px; }"
    "table { border-collapse: collapse; margin-top: 6px; margin-bottom: 6px; }"
    "th, td { padding: 3px 8px; text-align: left; vertical-align: top; border: 1px solid #808080; }"
    "th { background-color: #DFDFDF; }";

// Pixels.
constexpr qreal PageMargin = 10, ListIndent = 24;

class DocumentFace : public ControlFace {
 public:
  DocumentFace(FormFace& form, Document& model, QTextBrowser& page)
      : ControlFace(form, model, &page), model(model), page(page) {
    page.setOpenLinks(false);
    page.document()->setDefaultStyleSheet(PageStyle);
    page.document()->setDocumentMargin(PageMargin);
    page.document()->setIndentWidth(ListIndent);
    connect(&page, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
      Tell([this, &link] { this->model.UserLink(FromQt(link.toString())); });
    });
  }

 private:
  void Push() override {
    ControlFace::Push();
    if (shownHtml == model.Html()) return;
    shownHtml = model.Html;
    page.setHtml(ToQt(*shownHtml));
  }

  Document& model;
  QTextBrowser& page;
  std::optional<std::string> shownHtml;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfDocument(FormFace& form, Control& control) {
  return FaceOf<DocumentFace, Document, QTextBrowser>(form, control);
}

}  // namespace qel
