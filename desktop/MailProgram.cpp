#include "desktop/MailProgram.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <QUrl>
#include <QUuid>

#include "desktop/DiskFile.h"
#include "desktop/LeavingFile.h"
#include "desktop/QtText.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

namespace ovalia::desktop {

namespace {

QDir copies() {
  return QDir(QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/correo"));
}

// Nobody tells when a mail program has read its attachments; after a day it has.
void dropOldCopies() {
  const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
  for (const QFileInfo& folder : copies().entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
    if (folder.lastModified() < yesterday) QDir(folder.filePath()).removeRecursively();
}

// Each attachment in a folder of its own, since two may go by one name.
QStringList copied(const std::vector<MailAttachment>& attachments) {
  dropOldCopies();
  const QString folder = copies().filePath(QUuid::createUuid().toString(QUuid::WithoutBraces));
  QStringList files;
  for (const MailAttachment& attached : attachments) {
    QString name = leavingName(attached.name);
    if (name.isEmpty()) name = QFileInfo(diskFile(attached.path)).fileName();
    const QString place = QStringLiteral("%1/%2").arg(folder).arg(files.size() + 1);
    if (!QDir().mkpath(place)) throw Failure(failure::pathFileAccess);
    files += place + u'/' + name;
    Platform::current().files->copy(attached.path, logicPath(fromQt(files.back())), false);
  }
  return files;
}

// A zero would end the argument.
QString argument(TextView text) { return toQt(text).remove(QChar(u'\0')); }

// As one address of the web, so that none of them is taken for an option.
QString recipients(const std::vector<Text>& addresses) {
  QStringList encoded;
  for (const Text& address : addresses)
    encoded += QString::fromLatin1(QUrl::toPercentEncoding(toQt(address), "@"));
  return QStringLiteral("mailto:") + encoded.join(u',');
}

// An option without a text would be refused, and the mail with it.
QStringList argumentsFor(const MailMessage& message, const QStringList& files) {
  QStringList arguments{QStringLiteral("--utf8")};
  const auto add = [&](const QString& option, const QString& text) {
    if (!text.isEmpty()) arguments << option << text;
  };
  add(QStringLiteral("--subject"), argument(message.subject).simplified());
  add(QStringLiteral("--body"), argument(replaceAll(message.body, CRLF, u"\n")));
  for (const QString& file : files) add(QStringLiteral("--attach"), file);
  if (const auto to = mailAddresses(message.to); to && !to->empty()) arguments << recipients(*to);
  return arguments;
}

// Waits until the program has ended or has run for so long that it can be taken to work.
void watch(QProcess& program, std::chrono::milliseconds patience) {
  QElapsedTimer running;
  running.start();
  while (program.state() != QProcess::NotRunning && running.elapsed() < patience.count()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QThread::msleep(10);
  }
}

Text outcome(const QProcess& program) {
  if (program.state() != QProcess::NotRunning) return {};
  if (program.error() == QProcess::FailedToStart) return u"El programa de correo no se puede abrir.";
  if (program.exitStatus() != QProcess::NormalExit) return u"El programa de correo ha fallado.";
  if (program.exitCode() == 0) return {};
  return u"El programa de correo no ha podido abrirse (código " + toText(program.exitCode()) + u").";
}

}  // namespace

Text openInMailProgram(const MailMessage& message, std::chrono::milliseconds patience) {
  const QString path = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
  if (path.isEmpty()) return u"No hay ningún programa de correo.";
  const QStringList files = copied(message.attachments);
  // Deleted once the mail program has ended; where that outlives this program, never, for it would be ended.
  auto* program = new QProcess;
  program->setStandardInputFile(QProcess::nullDevice());
  program->setStandardOutputFile(QProcess::nullDevice());
  program->setStandardErrorFile(QProcess::nullDevice());
  program->setChildProcessModifier([] { setsid(); });
  program->start(path, argumentsFor(message, files));
  watch(*program, patience);
  const Text reason = outcome(*program);
  if (program->state() == QProcess::NotRunning)
    program->deleteLater();
  else
    QObject::connect(program, &QProcess::finished, program, &QObject::deleteLater);
  return reason;
}

}  // namespace ovalia::desktop
