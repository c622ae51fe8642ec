#pragma once

#include <optional>
#include <vector>

#include "platform/Text.h"
#include "platform/Variant.h"

namespace ovalia::desktop {

struct ReadAttachment {
  Text name;  // one that a file can have, never empty
  Text path;  // "\"-separated, of the decoded file
};

struct ReadMail {
  Text subject, from, to, copies;  // people as "Name <address>"
  std::optional<Date> date;        // local; nothing where the mail has none that makes sense
  Text text;                       // CRLF lines; that of a mail in HTML without its layout
  std::vector<ReadAttachment> attachments;
};

// Reads a mail from a file (.eml) and puts what is attached to it, images in its text and mails in it
// included, as files into `folder`, each in a folder of its own. What is damaged is read as far as it goes.
// Nothing for a file that is no mail; failure 53 for one that cannot be read, 61 where there is no room for
// its attachments. Nothing is fetched from anywhere, whatever the mail refers to.
std::optional<ReadMail> readMail(TextView path, TextView folder);

}  // namespace ovalia::desktop
