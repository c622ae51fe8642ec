#include "desktop/DesktopPrograms.h"

#include <QDesktopServices>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "desktop/DocumentType.h"

namespace ovalia::desktop {

namespace {

const QString applications = QStringLiteral("/applications/");
const QString entryGroup = QStringLiteral("Desktop Entry");

// One group of a file of the desktop: "[Group]", "Key=value" lines.
using Group = QHash<QString, QString>;

Group readGroup(const QString& path, const QString& wanted) {
  Group group;
  QFile file(path);
  if (!file.open(QFile::ReadOnly | QFile::Text)) return group;
  bool inside = false;
  while (!file.atEnd()) {
    const QString line = QString::fromUtf8(file.readLine()).trimmed();
    if (line.startsWith(u'[')) inside = line == u'[' + wanted + u']';
    const qsizetype sign = line.indexOf(u'=');
    if (inside && sign > 0 && !line.startsWith(u'#'))
      group.insert(line.left(sign).trimmed(), line.mid(sign + 1).trimmed());
  }
  return group;
}

QStringList valuesOf(const Group& group, const QString& key) {
  return group.value(key).split(u';', Qt::SkipEmptyParts);
}

bool isTrue(const Group& group, const char* key) {
  return group.value(QLatin1String(key)) == QStringLiteral("true");
}

// The words of a command line: a backslash escapes in the file as a whole, and again within quotes.
QStringList wordsOf(QString line) {
  line.replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
  QStringList words;
  QString word;
  bool quoted = false, begun = false;
  for (qsizetype i = 0; i < line.size(); ++i) {
    const QChar sign = line[i];
    if (sign == u'"') {
      quoted = !quoted;
      begun = true;
    } else if (sign == u' ' && !quoted) {
      if (begun) words += std::exchange(word, {});
      begun = false;
    } else {
      const bool escapes = quoted && sign == u'\\' && i + 1 < line.size();
      word += escapes ? line[++i] : sign;
      begun = true;
    }
  }
  if (begun) words += word;
  return words;
}

// What the two signs "%x" stand for; nothing for those that stand for nothing any more.
QString meaning(QChar code, const Group& entry, const QString& path, const QString& file) {
  switch (code.unicode()) {
    case u'f':
    case u'F':
      return file;
    case u'u':
    case u'U':
      return QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
    case u'c':
      return entry.value(QStringLiteral("Name"));
    case u'k':
      return path;
    case u'%':
      return QStringLiteral("%");
    default:
      return {};
  }
}

// The arguments with the file in its place; at the end where the entry names none.
QStringList filledIn(const QStringList& words, const Group& entry, const QString& path, const QString& file) {
  const QString files = QStringLiteral("fFuU");
  QStringList arguments;
  bool placed = false;
  for (const QString& word : words) {
    if (word == QStringLiteral("%i")) {
      const QString icon = entry.value(QStringLiteral("Icon"));
      if (!icon.isEmpty()) arguments << QStringLiteral("--icon") << icon;
      continue;
    }
    QString filled;
    for (qsizetype i = 0; i < word.size(); ++i) {
      const bool code = word[i] == u'%' && i + 1 < word.size();
      filled += code ? meaning(word[i + 1], entry, path, file) : QString(word[i]);
      if (!code) continue;
      placed = placed || files.contains(word[i + 1]);
      ++i;
    }
    if (!filled.isEmpty() || word.isEmpty()) arguments += filled;
  }
  if (!placed) arguments += file;
  return arguments;
}

// All names of a type, then those of the types that it is a case of. That it consists of bytes says nothing.
QList<QStringList> generations(const QMimeType& type) {
  QList<QStringList> all{QStringList(type.name()) + type.aliases()};
  const QMimeDatabase types;
  for (const QString& name : type.allAncestors()) {
    const QMimeType ancestor = types.mimeTypeForName(name);
    if (!ancestor.isDefault()) all += QStringList(ancestor.name()) + ancestor.aliases();
  }
  return all;
}

QStringList foldersIn(const char* variable, const char* otherwise) {
  const QString value = qEnvironmentVariable(variable);
  return (value.isEmpty() ? QString::fromLatin1(otherwise) : value).split(u':', Qt::SkipEmptyParts);
}

QString homeFolder(const char* variable, const char* below) {
  const QString value = qEnvironmentVariable(variable);
  return QDir::isAbsolutePath(value) ? value : QDir::homePath() + QLatin1String(below);
}

}  // namespace

DesktopPrograms::DesktopPrograms(QStringList settings, QStringList data, QStringList desktops)
    : settings_(std::move(settings)), data_(std::move(data)), desktops_(std::move(desktops)) {}

DesktopPrograms DesktopPrograms::ofUser() {
  return {QStringList(homeFolder("XDG_CONFIG_HOME", "/.config")) + foldersIn("XDG_CONFIG_DIRS", "/etc/xdg"),
          QStringList(homeFolder("XDG_DATA_HOME", "/.local/share")) +
              foldersIn("XDG_DATA_DIRS", "/usr/local/share:/usr/share"),
          foldersIn("XDG_CURRENT_DESKTOP", "")};
}

bool DesktopPrograms::any() const {
  for (const QString& folder : data_)
    if (QDirIterator(folder + applications, {QStringLiteral("*.desktop")}, QDir::Files,
                     QDirIterator::Subdirectories)
            .hasNext())
      return true;
  return false;
}

QStringList DesktopPrograms::lists() const {
  QStringList names;
  for (const QString& desktop : desktops_) names += desktop.toLower() + QStringLiteral("-mimeapps.list");
  names += QStringLiteral("mimeapps.list");
  QStringList all;
  for (const QString& folder : settings_)
    for (const QString& name : names) all += folder + u'/' + name;
  for (const QString& folder : data_)
    for (const QString& name : names) all += folder + applications + name;
  return all;
}

// Entries that open a type of any of the names: those that the lists put first, then those that they add,
// then those that say so themselves.
QStringList DesktopPrograms::entriesOf(const QStringList& names) const {
  QStringList first, added, removed;
  for (const QString& list : lists())
    for (const QString& name : names) {
      first += valuesOf(readGroup(list, QStringLiteral("Default Applications")), name);
      added += valuesOf(readGroup(list, QStringLiteral("Added Associations")), name);
      removed += valuesOf(readGroup(list, QStringLiteral("Removed Associations")), name);
    }
  QStringList own;
  for (const QString& folder : data_) {
    QDirIterator files(folder + applications, {QStringLiteral("*.desktop")}, QDir::Files,
                       QDirIterator::Subdirectories);
    QStringList ids;
    while (files.hasNext()) {
      const QString path = files.next();
      for (const QString& type : valuesOf(readGroup(path, entryGroup), QStringLiteral("MimeType")))
        if (names.contains(type)) ids += path.mid((folder + applications).size()).replace(u'/', u'-');
    }
    ids.sort();  // the disk has no order to rely on
    own += ids;
  }
  QStringList all = first;
  for (const QString& id : added + own)
    if (!removed.contains(id)) all += id;
  all.removeDuplicates();
  return all;
}

// A "-" in an id may stand for a folder.
QString DesktopPrograms::entryFile(const QString& id) const {
  for (const QString& folder : data_) {
    QString path = folder + applications + id;
    for (qsizetype dash = id.indexOf(u'-'); !QFile::exists(path) && dash >= 0;
         dash = id.indexOf(u'-', dash + 1))
      path = folder + applications + id.left(dash).replace(u'-', u'/') + u'/' + id.mid(dash + 1);
    if (QFile::exists(path)) return path;
  }
  return {};
}

std::optional<Launch> DesktopPrograms::launch(const QString& id, const QString& file) const {
  const QString path = entryFile(id);
  if (path.isEmpty()) return {};
  const Group entry = readGroup(path, entryGroup);
  if (isTrue(entry, "Hidden") || isTrue(entry, "Terminal")) return {};
  const QString needed = entry.value(QStringLiteral("TryExec"));
  if (!needed.isEmpty() && QStandardPaths::findExecutable(needed).isEmpty()) return {};
  QStringList words = wordsOf(entry.value(QStringLiteral("Exec")));
  if (words.isEmpty()) return {};
  const QString program = QStandardPaths::findExecutable(words.takeFirst());
  if (program.isEmpty()) return {};
  return Launch{program, filledIn(words, entry, path, file), entry.value(QStringLiteral("Path"))};
}

QList<Launch> DesktopPrograms::openers(const QMimeType& type, const QString& file) const {
  QList<Launch> found;
  for (const QStringList& names : generations(type)) {
    for (const QString& id : entriesOf(names))
      if (auto made = launch(id, file)) found += *std::move(made);
    if (!found.isEmpty()) break;
  }
  return found;
}

// The toolkit would choose by the name's ending, and could not tell whether there was a program.
bool openDocument(const QString& file, const QString& shownName) {
  const DesktopPrograms programs = DesktopPrograms::ofUser();
  if (!programs.any()) return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
  for (const Launch& launch : programs.openers(documentType(file, shownName), file))
    if (QProcess::startDetached(launch.program, launch.arguments, launch.folder)) return true;
  return false;
}

}  // namespace ovalia::desktop
