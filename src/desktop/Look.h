// The look of the program: the classic grey, whatever the desktop's theme is.
#pragma once

#include <QColor>

#include "controls/Control.h"

namespace qel {

// Style, palette and tool tips of the whole application. Fonts stay the system's.
void ApplyLook();

// The colour that a role has on the user's screen; the text colour for the default one.
QColor ColourOf(SystemColour role);

// A ground that tells one thing from others in a list and a picture, on which text of the window can be read
// whether the window is light or dark. Ten differ.
QColor MarkColour(int number);

}  // namespace qel
