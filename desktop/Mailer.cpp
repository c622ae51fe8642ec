#include "desktop/Mailer.h"

#include <QCoreApplication>

#include "desktop/MailDelivery.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Variant.h"

namespace ovalia::desktop {

namespace {

constexpr int exclamation = 48;
constexpr int information = 64;

std::vector<MailAttachment> attachmentsIn(const Variant& collection) {
  std::vector<MailAttachment> attachments;
  const ObjectRef list = collection.toObject();
  if (!list) return attachments;
  const std::int32_t count = getMember(list, u"Count").toLong();
  for (std::int32_t i = 1; i <= count; ++i)
    attachments.push_back({.path = getMember(list, u"", {i}).toText()});
  return attachments;
}

void tell(const Text& why, const Text& file, int icon) {
  Platform::current().screen->messageBox(join(why, CRLF, CRLF, u"El mensaje se ha guardado en:", CRLF, file,
                                              CRLF, CRLF, u"Ábralo con su programa de correo para enviarlo."),
                                         icon, u"Correo");
}

// The windows live while the server takes its time; what the user does waits.
bool letWindowsLive() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  return true;
}

bool send(const MailMessage& message, std::chrono::seconds patience) {
  const Text url = configuredServer();
  if (url.empty()) {
    tell(u"No hay un servidor de correo configurado.", keepMail(message), information);
    return false;
  }
  const Text reason = deliverMail({url, patience}, message, letWindowsLive);
  if (reason.empty()) return true;
  tell(join(u"El servidor de correo no ha aceptado el mensaje: ", reason), keepMail(message), exclamation);
  return false;
}

}  // namespace

ObjectRef makeMailer(std::chrono::seconds patience) {
  auto object = std::make_shared<MemberTable>();
  object->method(u"EnviarCorreo", [=](Arguments arguments) -> Variant {
    if (arguments.size() != 4) throw Failure(failure::wrongArguments);
    const Text sender = configuredSender();
    return send({sender.empty() ? Text(u"ovalia@localhost") : sender, arguments[0].text(),
                 arguments[1].text(), arguments[2].text(), attachmentsIn(arguments[3])},
                patience);
  });
  return object;
}

}  // namespace ovalia::desktop
