#pragma once

#include "desktop/MailMessage.h"
#include "host/Dialogs.h"

namespace ovalia::host {

// A mail by way of the user's mail program. Documents that are not there are told and left out. Without a
// program, and when it fails, the mail is kept as a file, which the desktop's program for such files opens;
// where there is none the user is told why and where the file is. Any failure is told.
void sendByProgram(Dialogs& dialogs, desktop::MailMessage message);

}  // namespace ovalia::host
