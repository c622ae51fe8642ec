#pragma once

#include <QByteArray>
#include <chrono>

#include "platform/Text.h"

namespace ovalia::desktop {

struct SmtpServer {
  Text url;  // "smtp://host:port" or "smtps://..."; user and password may stand in it
  std::chrono::seconds patience{30};
};

// Hands a composed message over; uses TLS when the server offers it. "" when the server has taken it, else
// why it did not, in Spanish or, where the reason is a rare one, in the library's words. Waits no longer than
// `patience` in all.
Text sendMail(const SmtpServer& server, const Text& from, const Text& to, const QByteArray& message);

}  // namespace ovalia::desktop
