#include "host/MailSending.h"

#include "desktop/MailDelivery.h"
#include "desktop/MailProgram.h"
#include "platform/Platform.h"

namespace ovalia::host {

namespace {

constexpr TextView title = u"Correo";

bool isThere(const desktop::MailAttachment& document) {
  try {
    return !Platform::current().files->firstMatch(document.path).empty();
  } catch (const Failure&) {
    return false;
  }
}

// Leaves out what is not there; gives the names.
Text leaveOutMissing(desktop::MailMessage& message) {
  Text missing;
  std::erase_if(message.attachments, [&](const desktop::MailAttachment& document) {
    if (isThere(document)) return false;
    missing += u"\n" + (document.name.empty() ? nativePath(document.path) : document.name);
    return true;
  });
  return missing;
}

void keepAndOpen(Dialogs& dialogs, const desktop::MailMessage& message, const Text& reason) {
  const Text file = desktop::keepMail(message);
  if (dialogs.openFile(file, file.substr(file.rfind(u'/') + 1))) return;
  dialogs.tell(title, reason + u"\n\nEl mensaje se ha guardado en:\n" + file +
                          u"\n\nÁbralo con un programa de correo para enviarlo.");
}

}  // namespace

void sendByProgram(Dialogs& dialogs, desktop::MailMessage message) {
  if (const Text missing = leaveOutMissing(message); !missing.empty())
    dialogs.tell(title, u"El correo va sin estos documentos, que no se encuentran:" + missing);
  try {
    const Text reason = desktop::openInMailProgram(message);
    if (!reason.empty()) keepAndOpen(dialogs, message, reason);
  } catch (const Failure& failure) {
    dialogs.tell(title, u"El correo no se ha podido preparar. " + failure.description());
  }
}

}  // namespace ovalia::host
