#pragma once

#include <chrono>

#include "desktop/MailMessage.h"

namespace ovalia::desktop {

// Hands a mail to the user's mail program, by the desktop's "xdg-email": recipient, subject, text, and the
// attachments as copies under the names that they go by, which stay for a day. "" once it has it, else why
// not, in Spanish. A program that fails within `patience` has not got it; one that runs longer has, and is
// left alone, also when this program ends. Attachments that are not there are failure 53.
Text openInMailProgram(const MailMessage& message,
                       std::chrono::milliseconds patience = std::chrono::seconds(3));

}  // namespace ovalia::desktop
