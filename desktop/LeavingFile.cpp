#include "desktop/LeavingFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>

#include "desktop/DiskFile.h"
#include "desktop/QtText.h"
#include "platform/Platform.h"
#include "routines/FileHelpers.h"
#include "routines/Trap.h"
#include "system/FileCopy.h"

namespace ovalia::desktop {

namespace {

constexpr qsizetype longest = 255;          // bytes of a file name
constexpr qsizetype longestExtension = 20;  // characters, the point included

QString listOfFiles() { return QStringLiteral("text/uri-list"); }

// Shortened before its extension.
QString fitting(QString name) {
  const qsizetype point = name.lastIndexOf(u'.');
  const bool extended = point > 0 && name.size() - point <= longestExtension;
  const QString extension = extended ? name.mid(point) : QString();
  name.chop(extension.size());
  while (name.toUtf8().size() + extension.toUtf8().size() > longest)
    name.chop(name.back().isLowSurrogate() && name.size() > 1 ? 2 : 1);
  return name + extension;
}

// A folder of its own for each, since two documents may be shown by one name.
QString newFolder() {
  static std::unique_ptr<QTemporaryDir> copies;
  static int count = 0;
  if (!copies || !QDir(copies->path()).exists())
    copies = std::make_unique<QTemporaryDir>(toQt(nativePath(componentFolder())) +
                                             QStringLiteral("arrastre-XXXXXX"));
  const QString folder = QStringLiteral("%1/%2").arg(copies->path()).arg(++count);
  if (!copies->isValid() || !QDir().mkpath(folder)) throw Failure(failure::pathFileAccess);
  return folder;
}

}  // namespace

QString leavingName(TextView shown) {
  QString name;
  for (const QChar c : toQt(shown))
    if (c != u'/' && c != u'\\' && c.category() != QChar::Other_Control) name += c;
  name = name.trimmed();
  if (name == QStringLiteral(".") || name == QStringLiteral("..")) return {};
  return fitting(name);
}

LeavingFile::LeavingFile(TextView path, TextView shown) : path_(path), name_(leavingName(shown)) {
  if (name_.isEmpty()) name_ = leavingName(path.substr(path.rfind(u'\\') + 1));
}

QStringList LeavingFile::formats() const { return {listOfFiles()}; }

QVariant LeavingFile::retrieveData(const QString& format, QMetaType) const {
  if (format != listOfFiles()) return {};
  if (address_.isEmpty())
    resumeNext([&] {
      const QString copy = newFolder() + u'/' + name_;
      system::copyNew(QFile::encodeName(diskFile(path_)).toStdString(),
                      QFile::encodeName(copy).toStdString());
      address_ = QUrl::fromLocalFile(copy).toEncoded() + "\r\n";
    });
  return address_;
}

}  // namespace ovalia::desktop
