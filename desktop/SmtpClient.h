#pragma once

#include <chrono>
#include <functional>
#include <vector>

#include "desktop/MailMessage.h"

class QFileDevice;

namespace ovalia::desktop {

struct SmtpServer {
  Text url;  // "smtp://host:port" or "smtps://..."; user and password may stand in it
  std::chrono::seconds patience{30};  // for an answer, and for a byte to go through
};

// Called every few milliseconds on the caller's thread while a message is on its way; false gives it up.
using Meanwhile = std::function<bool()>;

// Hands over the composed message that the open file holds, from its first byte; uses TLS when the server
// offers it. "" when the server has taken it, else why it did not, in Spanish or, where the reason is a rare
// one, in the library's words, with the server's own behind it. Addresses are bare ones.
Text sendMail(const SmtpServer& server, const Text& from, const std::vector<Text>& to, QFileDevice& message,
              const Meanwhile& meanwhile);

}  // namespace ovalia::desktop
