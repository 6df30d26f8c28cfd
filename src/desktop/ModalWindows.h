// Which window stands before which, and which keeps the user from the others.
#pragma once

#include <QWidget>

namespace qel {

// Has a window that is about to be shown stay before the one that is in front, and for MakeModal keep the
// user from all others. A window that belongs to a modal one can be used beside it.
void GiveOwner(QWidget& window);
void MakeModal(QWidget& window);
// Whether a modal window keeps the user from this one.
bool IsKeptFrom(const QWidget& window);

}  // namespace qel
