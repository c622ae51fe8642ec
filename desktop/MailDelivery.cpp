#include "desktop/MailDelivery.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <atomic>
#include <future>

#include "desktop/QtText.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

namespace ovalia::desktop {

namespace {

constexpr TextView section = u"Correo";

Text setting(TextView key) {
  const Platform& here = Platform::current();
  return trimBlanks(here.settings->get(here.app.title, section, key, u""));
}

// Attachments can be large: they are put into the message on a thread of their own.
void compose(const MailMessage& message, QFileDevice& file, const Meanwhile& meanwhile) {
  auto writing = std::async(std::launch::async, [&] { writeMail(message, file); });
  while (writing.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready) meanwhile();
  writing.get();
}

// A new file of the folder that nobody else may read, open for writing; null when there can be none.
std::unique_ptr<QFile> newFileIn(const QString& folder) {
  if (folder.isEmpty() || !QFileInfo(folder).isDir()) return nullptr;
  const QString stem = QStringLiteral("Correo %1")
                           .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hhmmss")));
  for (int n = 1; n < 100; ++n) {
    const QString name = n == 1 ? stem : QStringLiteral("%1 (%2)").arg(stem).arg(n);
    auto file = std::make_unique<QFile>(QDir(folder).filePath(name + QStringLiteral(".eml")));
    if (file->open(QIODevice::WriteOnly | QIODevice::NewOnly,
                   QFileDevice::ReadOwner | QFileDevice::WriteOwner))
      return file;
    if (!file->exists()) return nullptr;
  }
  return nullptr;
}

// The folder for passing files last: it does not outlive the day.
std::unique_ptr<QFile> newFile() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  for (const QString& folder : {documents, QDir::homePath(), QDir::tempPath()})
    if (auto file = newFileIn(folder)) return file;
  throw Failure(failure::pathFileAccess);
}

}  // namespace

Text configuredServer() { return setting(u"Servidor"); }
Text configuredSender() { return setting(u"Remitente"); }

Text deliverMail(const SmtpServer& server, const MailMessage& message, const Meanwhile& meanwhile) {
  bool wanted = true;
  const Meanwhile watching = [&] { return wanted = wanted && meanwhile(); };
  QTemporaryFile composed;
  if (!composed.open()) throw Failure(failure::pathFileAccess);
  compose(message, composed, watching);
  const auto to = mailAddresses(message.to), from = mailAddresses(message.from);
  if (!to || to->empty()) return u"la dirección del destinatario no está bien escrita.";
  if (!from || from->empty())
    return u"falta la dirección del remitente o no está bien escrita: póngala en la configuración.";
  return sendMail(server, from->front(), *to, composed, watching);
}

Text keepMail(const MailMessage& message) {
  const auto file = newFile();
  try {
    // By this line a mail program opens the file as a message that is yet to be sent.
    file->write("X-Unsent: 1\r\n");
    writeMail(message, *file);
  } catch (...) {
    file->remove();
    throw;
  }
  return fromQt(file->fileName());
}

}  // namespace ovalia::desktop
