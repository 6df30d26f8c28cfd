// The tests' host: scripted answers, and a transcript of all that was shown, in order.
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "core/Surroundings.h"
#include "platform/Host.h"

namespace qel {

class ScriptedHost : public Host, public Display {
 public:
  Answer MessageBox(const Message& message) override {
    messages.push_back(message);
    transcript.push_back("message: " + message.Title);
    if (answers.empty()) return message.buttons == Buttons::AbortRetryIgnore ? Answer::Ignore : Answer::OK;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  void SetClipboardText(const std::string& text) override { clipboard = text; }
  void PlaySoundFile(const std::string& path) override { transcript.push_back("sound: " + path); }
  void Beep() override { transcript.push_back("beep"); }
  void SetMousePointer(MousePointer shape) override { pointer = shape; }
  void Yield() override {
    if (yielded) yielded();
  }

  void SplashText(const std::string& text) override { transcript.push_back("splash: " + text); }
  void StatusText(const std::string& text) override { transcript.push_back("status: " + text); }
  void Progress(Int16) override {}
  void ShowReport() override { transcript.push_back("report"); }

  bool Showed(const std::string& entry) const {
    return std::ranges::find(transcript, entry) != transcript.end();
  }

  std::deque<Answer> answers;     // to the next message boxes; then Ignore or OK
  std::function<void()> yielded;  // what happens meanwhile
  std::vector<Message> messages;
  std::vector<std::string> transcript;
  std::string clipboard;
  MousePointer pointer = MousePointer::Default;

 private:
  const Surroundings around{*this, *this};
};

}  // namespace qel
