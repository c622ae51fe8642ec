#pragma once

#include <QWidget>

namespace ovalia::desktop {

// The window over which a dialog belongs now; none when the program shows no window. A dialog made over it is
// deleted with it: keep it on the heap and look at it after its loop.
QWidget* dialogOwner();

// Places a dialog that has no parent in the middle of the window and above it: it outlives the window.
void standOver(QWidget& dialog, QWidget* owner);

}  // namespace ovalia::desktop
