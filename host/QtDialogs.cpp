#include "host/QtDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>

#include "desktop/DesktopPrograms.h"
#include "desktop/DialogOwner.h"
#include "desktop/MailDialog.h"
#include "desktop/Progress.h"
#include "desktop/QtText.h"
#include "host/MailSending.h"
#include "host/PickDialog.h"
#include "platform/Platform.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;

namespace {

constexpr int question = 32, warning = 48;
constexpr int yesNo = 4, yesNoCancelButtons = 3;
constexpr int yes = 6;

QStringList toQtList(std::span<const Text> names) {
  QStringList list;
  for (const Text& name : names) list += toQt(name);
  return list;
}

std::optional<QStringList> pick(TextView title, std::span<const Text> names, const QStringList& chosen,
                                bool several) {
  const QPointer<PickDialog> dialog =
      new PickDialog(toQt(title), toQtList(names), chosen, several, desktop::dialogOwner());
  const bool accepted = dialog->exec() == QDialog::Accepted && dialog;
  std::optional<QStringList> picked;
  if (accepted) picked = dialog->chosen();
  delete dialog;
  return picked;
}

// The folder asked for, or the user's documents where there is no such folder.
QString startFolder(const FileQuestion& asked) {
  const QString folder = toQt(nativePath(asked.folder));
  const bool usable = QDir::isAbsolutePath(folder) && QDir(folder).exists();
  return usable ? folder : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void prepare(QFileDialog& dialog, const FileQuestion& asked) {
  dialog.setWindowTitle(toQt(asked.title));
  dialog.setDirectory(startFolder(asked));
  dialog.setNameFilter(toQt(toolkitFilter(asked.filter)));
  if (!asked.name.empty()) dialog.selectFile(toQt(asked.name));
}

}  // namespace

std::optional<Text> QtDialogs::pickOne(TextView title, std::span<const Text> names, TextView current) {
  const auto chosen = pick(title, names, {toQt(current)}, false);
  if (!chosen || chosen->isEmpty()) return {};
  return fromQt(chosen->front());
}

std::optional<std::vector<Text>> QtDialogs::pickSeveral(TextView title, std::span<const Text> names,
                                                        std::span<const Text> chosen) {
  const auto picked = pick(title, names, toQtList(chosen), true);
  if (!picked) return {};
  std::vector<Text> values;
  for (const QString& value : *picked) values.push_back(fromQt(value));
  return values;
}

void QtDialogs::tell(TextView title, TextView message) {
  Platform::current().screen->messageBox(message, warning, title);
}

bool QtDialogs::confirm(TextView title, TextView message) {
  return Platform::current().screen->messageBox(message, yesNo + question, title) == yes;
}

int QtDialogs::yesNoCancel(TextView title, TextView message) {
  return Platform::current().screen->messageBox(message, yesNoCancelButtons + question, title);
}

std::vector<Text> QtDialogs::openFiles(const FileQuestion& asked) {
  QFileDialog dialog(desktop::dialogOwner());
  prepare(dialog, asked);
  dialog.setFileMode(asked.several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
  std::vector<Text> paths;
  if (dialog.exec() == QDialog::Accepted)
    for (const QString& path : dialog.selectedFiles()) paths.push_back(logicPath(fromQt(path)));
  desktop::Progress::current().expect(paths.size());
  return paths;
}

Text QtDialogs::saveFile(const FileQuestion& asked) {
  QFileDialog dialog(desktop::dialogOwner());
  prepare(dialog, asked);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(toQt(onlyExtension(asked.filter)));
  if (dialog.exec() != QDialog::Accepted) return {};
  return logicPath(fromQt(dialog.selectedFiles().front()));
}

bool QtDialogs::choosePrinter() {
  QPrinter printer;
  return QPrintDialog(&printer, desktop::dialogOwner()).exec() == QDialog::Accepted;
}

bool QtDialogs::openFile(TextView nativePath, TextView shownName) {
  return desktop::openDocument(toQt(nativePath), toQt(shownName));
}

// With a server the mail is sent from here, else by the user's mail program.
void QtDialogs::sendMail(const desktop::MailMessage& draft) {
  const Text server = desktop::configuredServer();
  if (server.empty()) return sendByProgram(*this, draft);
  const QPointer<desktop::MailDialog> dialog =
      new desktop::MailDialog(draft, {.url = server}, desktop::dialogOwner());
  dialog->exec();
  delete dialog;
}

Text onlyExtension(TextView filter) {
  const QString mask = toQt(filter).section(u'|', 1, 1);
  const bool one = mask.startsWith(QStringLiteral("*.")) && !mask.contains(u';') && mask.count(u'*') == 1;
  return one ? fromQt(mask.mid(2)) : Text();
}

Text toolkitFilter(TextView filter) {
  QStringList made;
  const QStringList parts = toQt(filter).split(u'|');
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    // The name carries its masks in brackets already; "*.*" leaves out names without a point.
    const QString name = parts[i].section(u'(', 0, 0).trimmed();
    const QString masks = parts[i + 1] == QStringLiteral("*.*") ? QStringLiteral("*") : parts[i + 1];
    made += name + QStringLiteral(" (") + QString(masks).replace(u';', u' ') + u')';
  }
  return fromQt(made.join(QStringLiteral(";;")));
}

}  // namespace ovalia::host
