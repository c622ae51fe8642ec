#include "desktop/Mailer.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "desktop/MailMessage.h"
#include "desktop/QtText.h"
#include "desktop/SmtpClient.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Variant.h"

namespace ovalia::desktop {

namespace {

constexpr TextView section = u"Correo";
constexpr int exclamation = 48;
constexpr int information = 64;

Text setting(TextView key) {
  const Platform& here = Platform::current();
  return trimBlanks(here.settings->get(here.app.title, section, key, u""));
}

Text sender() {
  const Text set = setting(u"Remitente");
  return set.empty() ? Text(u"ovalia@localhost") : set;
}

std::vector<Text> pathsIn(const Variant& collection) {
  std::vector<Text> paths;
  const ObjectRef list = collection.toObject();
  if (!list) return paths;
  const std::int32_t count = getMember(list, u"Count").toLong();
  for (std::int32_t i = 1; i <= count; ++i) paths.push_back(getMember(list, u"", {i}).toText());
  return paths;
}

// A new file of the folder; nothing when it cannot be written.
QString keepIn(const QString& folder, const QByteArray& message) {
  if (folder.isEmpty() || !QFileInfo(folder).isDir()) return {};
  const QString stem = QStringLiteral("Correo %1")
                           .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hhmmss")));
  for (int n = 1; n < 100; ++n) {
    const QString name = n == 1 ? stem : QStringLiteral("%1 (%2)").arg(stem).arg(n);
    QFile file(QDir(folder).filePath(name + QStringLiteral(".eml")));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
      if (file.exists()) continue;
      return {};
    }
    // By this line a mail program opens the file as a message that is yet to be sent.
    const QByteArray whole = "X-Unsent: 1\r\n" + message;
    if (file.write(whole) == whole.size() && file.flush()) return file.fileName();
    file.remove();
    return {};
  }
  return {};
}

Text keep(const QByteArray& message) {
  QString file = keepIn(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), message);
  if (file.isEmpty()) file = keepIn(QDir::tempPath(), message);
  if (file.isEmpty()) throw Failure(failure::pathFileAccess);
  return fromQt(file);
}

void tell(const Text& why, const Text& file, int icon) {
  Platform::current().screen->messageBox(join(why, CRLF, CRLF, u"El mensaje se ha guardado en:", CRLF, file,
                                              CRLF, CRLF, u"Ábralo con su programa de correo para enviarlo."),
                                         icon, u"Correo");
}

bool send(const MailMessage& message, std::chrono::seconds patience) {
  const QByteArray composed = composeMail(message);
  const Text url = setting(u"Servidor");
  if (url.empty()) {
    tell(u"No hay un servidor de correo configurado.", keep(composed), information);
    return false;
  }
  const Text reason = sendMail({url, patience}, message.from, message.to, composed);
  if (reason.empty()) return true;
  tell(join(u"El servidor de correo no ha aceptado el mensaje: ", reason), keep(composed), exclamation);
  return false;
}

}  // namespace

ObjectRef makeMailer(std::chrono::seconds patience) {
  auto object = std::make_shared<MemberTable>();
  object->method(u"EnviarCorreo", [=](Arguments arguments) -> Variant {
    if (arguments.size() != 4) throw Failure(failure::wrongArguments);
    return send(
        {sender(), arguments[0].text(), arguments[1].text(), arguments[2].text(), pathsIn(arguments[3])},
        patience);
  });
  return object;
}

}  // namespace ovalia::desktop
