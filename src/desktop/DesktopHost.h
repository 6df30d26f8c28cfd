// The host of the desktop program: message boxes, dialogues, sound, printing, other programs.
#pragma once

#include <string>

#include "desktop/EventLoop.h"
#include "ui/WindowHost.h"

namespace qel {

class DesktopHost : public WindowHost {
 public:
  explicit DesktopHost(qel::Windows& windows) : Loop(windows) { Windows = &windows; }

  EventLoop Loop;

  Answer MessageBox(const Message& message) override;
  void RunModal(const std::function<bool()>& done) override;
  void Yield() override;
  void Paint() override;
  void SetMousePointer(MousePointer shape) override;
  void SetClipboardText(const std::string& text) override;
  void SetClipboardPage(const std::string& text, const std::string& html) override;
  std::string ClipboardText() override;
  void PlaySoundFile(const std::string& path) override;
  void Beep() override;
  bool IsLocked(LockKey key) override;
  std::optional<std::string> AskOpenFile(const FileDialog& dialog) override;
  std::optional<std::string> AskSaveFile(const FileDialog& dialog) override;
  std::optional<Font> AskFont(const Font& font) override;
  void Print(const PrintJob& job) override;
  void OpenDocument(const std::string& document) override;
  void StartProgram(const std::string& command) override;
  unsigned BackgroundColour() override;
};

}  // namespace qel
