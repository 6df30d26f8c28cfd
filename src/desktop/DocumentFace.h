// Pages to read, with links.
#pragma once

#include <QTextBrowser>
#include <optional>
#include <string>

#include "controls/TextControls.h"
#include "desktop/ControlFace.h"

namespace qel {

class DocumentFace : public ControlFace {
 public:
  DocumentFace(FormFace& form, Document& model, QTextBrowser& page);

 private:
  void Push() override;

  Document& model;
  QTextBrowser& page;
  std::optional<std::string> shownHtml;
};

}  // namespace qel
