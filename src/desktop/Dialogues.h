// Message boxes and file dialogues. They run in the program's own loop, so that its end ends them too.
#pragma once

#include <QDialog>
#include <optional>
#include <string>

#include "desktop/EventLoop.h"
#include "platform/Host.h"

namespace qel {

// Shows a dialogue before the active window until the user has answered it; its result. Throws ProgramEnd
// when the program ends meanwhile.
int RunDialogue(QDialog& dialogue);

Answer ShowMessageBox(const Message& message, EventLoop& loop);

// Paths are the system's bytes; nothing where the user cancels.
std::optional<std::string> AskFileToOpen(const FileDialog& wanted);
std::optional<std::string> AskFileToSave(const FileDialog& wanted);

// "Text (*.txt;*.log)|*.txt;*.log|All (*.*)|*.*" as the toolkit writes it: "Text (*.txt *.log);;All (*)".
// Where there are several kinds of files, all of them together come first.
QString ToolkitFilter(const std::string& filter);

}  // namespace qel
