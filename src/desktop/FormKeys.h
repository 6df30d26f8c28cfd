// The keys of a window: those that its design gives to controls, and what Enter, Escape and the tab key do in
// every window.
#pragma once

class QKeyEvent;
class QWidget;

namespace qel {

class FormFace;

// Of the design: "accessKey", the letter that with Alt enters a control, and "keys", which click a button or
// enter another control.
void AddKeys(FormFace& face);

// A key that is pressed in a widget of the window; true where it goes no further.
bool TakeKey(FormFace& face, const QWidget& widget, const QKeyEvent& event);

}  // namespace qel
