#pragma once

#include <QtCore/qnamespace.h>

namespace ovalia::desktop {

// The virtual-key number of a key, 0 for one that has none. A shifted character names the key that carries it
// on the Spanish keyboard, so comma and semicolon are both 188, full stop and colon both 190.
int virtualKey(int key, Qt::KeyboardModifiers modifiers);

// 1 Shift, 2 Ctrl, 4 Alt.
int shiftMask(Qt::KeyboardModifiers modifiers);

}  // namespace ovalia::desktop
