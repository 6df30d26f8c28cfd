// A display that writes down what it is told of the work: steps of the same thing in one line, a star where
// the bar shows the percentage too.
#pragma once

#include <string>
#include <vector>

#include "core/Display.h"
#include "values/NumberConversion.h"

namespace qel {

class Listener : public Display {
 public:
  void SplashText(const std::string& text) override { StatusText(text); }
  void StatusText(const std::string& text) override {
    const std::string what = text.substr(0, text.rfind(' ')), percent = text.substr(what.size());
    const bool isNextStep = !said.empty() && said.back().starts_with(what + " ");
    isNextStep ? void(said.back() += percent) : said.push_back(text);
  }
  void Progress(Int16 percent) override {
    const bool isInText = said.back().ends_with(" " + NumberText(percent) + "%");
    isInText ? void(said.back() += "*") : said.push_back("bar " + NumberText(percent));
  }
  void ShowProgress(bool visible) override { said.push_back(visible ? "progress" : "no progress"); }
  void WorkFailed(const std::string& why) override { said.push_back("failed: " + why); }

  std::vector<std::string> said;
};

}  // namespace qel
