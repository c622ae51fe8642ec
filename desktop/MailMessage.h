#pragma once

#include <optional>
#include <vector>

#include "platform/Text.h"

class QFileDevice;

namespace ovalia::desktop {

struct MailAttachment {
  Text path;       // "\"-separated
  Text name = {};  // that it goes by; "" for the file's own
};

struct MailMessage {
  Text from;
  Text to;  // addresses, with or without their owners' names, separated by "," or ";"
  Text subject;
  Text body;
  std::vector<MailAttachment> attachments;
};

// The addresses alone of such a text: none for a blank one, nothing when a part of it is no address.
std::optional<std::vector<Text>> mailAddresses(TextView to);

// Writes the message as it goes over the line, MIME, UTF-8, CRLF, behind what the open file holds already. No
// attachment is held in memory as a whole. One that cannot be read is 53, a file that takes no more is 61.
void writeMail(const MailMessage& message, QFileDevice& file);

}  // namespace ovalia::desktop
