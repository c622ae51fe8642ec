#pragma once

#include <QString>

namespace ovalia::desktop {

// Shows a box by the classic flag word (buttons, icon, default button, system-modal) and gives the code of
// the button: 1 OK, 2 Cancel, 3 Abort, 4 Retry, 5 Ignore, 6 Yes, 7 No. Escape and the close box mean Cancel,
// or OK where that is all there is; a question that has no such button must be answered.
int showMessageBox(const QString& message, int flags, const QString& title);

// The text typed; nothing ("") on Cancel.
QString showInputBox(const QString& prompt, const QString& title, const QString& initial);

}  // namespace ovalia::desktop
