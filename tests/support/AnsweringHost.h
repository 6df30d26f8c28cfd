// A host whose user answers errors in turns: the same answer each time, or another one the third time.
#pragma once

#include "core/Surroundings.h"
#include "support/ScriptedHost.h"

namespace qel {

class AnsweringHost : public ScriptedHost {
 public:
  // The answers to the errors from here on, over and over.
  void AnswerErrors(std::vector<Answer> inTurn) {
    turns = std::move(inTurn);
    errors.clear();
  }

  Answer ErrorBox(const RunTimeError& error, const Message& message) override {
    if (message.Title == error.Source() + " - Error") return Answer::Abort;  // the second answer counts
    const Surroundings& here = CurrentSurroundings();
    errors.push_back(here.ProcedureTrace + ", " + here.StepTrace + ": " + error.Description());
    return turns[(errors.size() - 1) % turns.size()];
  }

  std::vector<std::string> errors;  // where and which

 private:
  std::vector<Answer> turns = {Answer::Ignore};
};

// Keeps the pointer and the yielding too.
class TellingHost : public AnsweringHost {
  void SetMousePointer(MousePointer shape) override {
    transcript.push_back(shape == MousePointer::Default ? "pointer" : "hourglass");
  }
  void Yield() override { transcript.push_back("yield"); }
};

}  // namespace qel
