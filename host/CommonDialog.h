#pragma once

#include "host/Dialogs.h"
#include "platform/Object.h"

namespace ovalia::host {

// The common dialog of the main form, driven by member name: DialogTitle, Filter, fileName, InitDir, FLAGS,
// CancelError and MaxFileSize are stored; ShowOpen, ShowSave and ShowPrinter ask the user. Several chosen
// files come back in fileName as their folder and their names, parted by zero characters; a single one as its
// full path. Cancelling leaves fileName as it was and is failure 32755 while CancelError is true.
ObjectRef commonDialog(Dialogs& dialogs);

}  // namespace ovalia::host
