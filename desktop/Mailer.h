#pragma once

#include <chrono>

#include "platform/Object.h"

namespace ovalia::desktop {

// The mailer as the outside component of that name: `EnviarCorreo(address, subject, body, collection of
// paths)`, true when a server has taken the message. The application's settings say which, section "Correo":
// "Servidor"
// ("smtp://host:port") and "Remitente". Without a server, and when it refuses or is silent for longer than
// `patience`, the message is kept as a file in the user's documents, which a mail program opens, and the user
// is told where. An attachment that cannot be read is failure 53.
ObjectRef makeMailer(std::chrono::seconds patience = std::chrono::seconds(30));

}  // namespace ovalia::desktop
