#pragma once

#include "desktop/MailMessage.h"
#include "desktop/SmtpClient.h"

// What becomes of a mail that is written: a server takes it, or it is kept as a file. The user's settings,
// section "Correo", say which server ("Servidor", "smtp://host:port") and from whom ("Remitente").
namespace ovalia::desktop {

Text configuredServer();  // "" when there is none
Text configuredSender();  // "" when none is set

// Composes the message and hands it to the server. "" when that has taken it, else why not, in Spanish.
// Failure 53 for an attachment that cannot be read, 61 where there is no room for the composed message, 75
// where none can be written.
Text deliverMail(const SmtpServer& server, const MailMessage& message, const Meanwhile& meanwhile);

// Keeps the message as a file in the user's documents (the home folder where there are none), which nobody
// else may read and a mail program opens as one that is yet to be sent; gives its path in the system's form.
// Failures as above.
Text keepMail(const MailMessage& message);

}  // namespace ovalia::desktop
