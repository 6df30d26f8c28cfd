// The tests' host: scripted answers, and a transcript of all that was shown, in order.
#pragma once

#include <algorithm>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "core/Display.h"
#include "platform/Host.h"

namespace qel {

class ScriptedHost : public Host, public Display {
 public:
  ScriptedHost() {
    SetHost(*this);
    SetDisplay(*this);
  }

  Answer MessageBox(const Message& message) override {
    messages.push_back(message);
    transcript.push_back("message: " + message.Title);
    if (answers.empty()) return message.buttons == Buttons::AbortRetryIgnore ? Answer::Ignore : Answer::OK;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  // Runs the next scripted action of the user; a modal window that outlives the script is left open.
  void RunModal(const std::function<bool()>& done) override {
    while (!done() && !actions.empty()) {
      const auto action = std::move(actions.front());
      actions.pop_front();
      action();
    }
  }
  void SetClipboardText(const std::string& text) override { clipboard = text; }
  std::string ClipboardText() override { return clipboard; }
  std::optional<Font> AskFont(const Font&) override {
    if (fonts.empty()) return std::nullopt;
    const Font font = fonts.front();
    fonts.pop_front();
    return font;
  }
  void PlaySoundFile(const std::string& path) override { transcript.push_back("sound: " + path); }
  void Beep() override { transcript.push_back("beep"); }
  void SetMousePointer(MousePointer shape) override { pointer = shape; }
  void Yield() override {
    if (yielded) yielded();
  }

  std::optional<std::string> AskOpenFile(const FileDialog& dialog) override {
    return NextPath("open", dialog);
  }
  std::optional<std::string> AskSaveFile(const FileDialog& dialog) override {
    return NextPath("save", dialog);
  }
  void Print(const PrintJob& job) override { printed.push_back(job); }
  void OpenDocument(const std::string& document) override { transcript.push_back("document: " + document); }
  void StartProgram(const std::string& path) override { transcript.push_back("program: " + path); }
  unsigned BackgroundColour() override { return background; }

  void SplashText(const std::string& text) override { transcript.push_back("splash: " + text); }
  void StatusText(const std::string& text) override { transcript.push_back("status: " + text); }
  void Progress(Int16) override {}
  void ShowReport() override { transcript.push_back("report"); }

  bool Showed(const std::string& entry) const {
    return std::ranges::find(transcript, entry) != transcript.end();
  }

  std::deque<Answer> answers;                    // to the next message boxes; then Ignore or OK
  std::deque<std::function<void()>> actions;     // what the user does while modal windows are in front
  std::function<void()> yielded;                 // what happens meanwhile
  std::deque<std::optional<std::string>> paths;  // to the next file dialogues; then cancelled
  std::deque<Font> fonts;                        // to the next font dialogues; then cancelled
  std::vector<FileDialog> dialogs;
  std::vector<PrintJob> printed;
  std::vector<Message> messages;
  std::vector<std::string> transcript;
  std::string clipboard;
  MousePointer pointer = MousePointer::Default;
  unsigned background = StandardGrey;

 private:
  std::optional<std::string> NextPath(const std::string& kind, const FileDialog& dialog) {
    dialogs.push_back(dialog);
    transcript.push_back(kind + ": " + dialog.FileName);
    if (paths.empty()) return std::nullopt;
    const auto path = paths.front();
    paths.pop_front();
    return path;
  }
};

}  // namespace qel
