// Windows and the screen: each comes up wholly on it, and a dialogue in the middle of the window that it
// belongs to. What does not fit scrolls.
#pragma once

#include <QRect>
#include <QWidget>

namespace qel {

// For a window that is about to be shown: brings it to a size, and where it has been given a place also to
// one, with which it lies within `screen`, its frame included; device-independent pixels. Where the content
// needs more room, all of it but a dialogue's row of buttons goes into an area that scrolls and follows the
// focus; true where that was done.
bool FitInto(QWidget& window, const QRect& screen);

// For a window that stands: brings it back wholly onto its screen.
void BringOntoScreen(QWidget& window);

// For a dialogue that is about to be shown: where the window system has yet to place its owner, the dialogue
// follows it there.
void FollowPlacement(QWidget& dialogue, QWidget& owner);

}  // namespace qel
