// A journey through the real windows: the same script, played with mouse and keyboard events.
#pragma once

#include <QWidget>

#include "desktop/EventLoop.h"
#include "journeys/Journey.h"

namespace qel {

class FaceJourney : public Journey {
 public:
  FaceJourney(Script& script, const TemporaryFolder& folder, EventLoop& loop,
              std::function<qel::Windows&()> newProcess)
      : Journey(script, folder, std::move(newProcess)), loop(loop) {}

  // Why the script could not go on; empty where it did.
  std::string Failure() const { return failure; }

 private:
  void Start() override;
  void RunModal(const std::function<bool()>& done) override;
  bool HasEnded() override;
  // No exception passes through the toolkit but by way of the program's end.
  void Stop(const std::string& why) override;

  void Click(Control& control) override;
  void DoubleClick(Control& control) override;
  void ClickTool(Toolbar& bar, const std::string& key) override;
  void ClickTab(TabStrip& strip, int tab) override;
  void ClickRow(ListView& list, int row) override;
  void ClickColumn(ListView& list, int column) override;
  void Type(Control& control, const std::string& text) override;
  void Press(Form& form, const std::string& key) override;
  void Choose(ListBox& list, int index) override;
  void Pick(Calendar& calendar, Date day) override;
  void Point(Control& control) override;
  void Step(UpDown& button, bool up) override;
  void Close(Form& form) override;
  void Activate(Form& form) override;

  EventLoop& loop;  // of each process in turn
  std::string failure;
  bool toldEnd = false;
};

}  // namespace qel
