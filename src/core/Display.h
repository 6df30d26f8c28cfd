// Where long work tells the user how far it is. The splash window, the main window and the command line each
// show what they have room for; what nobody shows is lost, and nothing depends on it.
#pragma once

#include <string>

#include "values/CheckedInteger.h"

namespace qel {

class Display {
 public:
  virtual ~Display() = default;
  virtual Display& Front() { return *this; }      // who shows it now
  virtual void SplashText(const std::string&) {}  // SplashLabel1
  virtual void StatusText(const std::string&) {}  // StatusBarMain
  virtual void ShowProgress(bool /*visible*/) {}  // ProgressBar1
  virtual void Progress(Int16 /*percent*/) {}     // 0 to 100
  virtual void WorkFailed(const std::string& /*reason*/) {
  }                             // beside the message that it did, which gives none
  virtual void ShowReport() {}  // frmReport: the analysis has a report to show
};

}  // namespace qel
