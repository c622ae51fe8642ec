#pragma once

#include <QByteArray>
#include <vector>

#include "platform/Text.h"

namespace ovalia::desktop {

struct MailMessage {
  Text from;
  Text to;
  Text subject;
  Text body;
  std::vector<Text> attachments;  // "\"-separated paths
};

// The message as it goes over the line: MIME, UTF-8, CRLF. An attachment that cannot be read is 53.
QByteArray composeMail(const MailMessage& message);

}  // namespace ovalia::desktop
