#include "desktop/DropData.h"

#include <QSysInfo>
#include <QUrl>
#include <optional>

#include "desktop/Progress.h"
#include "desktop/QtText.h"
#include "forms/Form.h"
#include "platform/Platform.h"
#include "routines/Collection.h"

namespace ovalia::desktop {

namespace {

// How file managers write down what was copied in them: a line for each file, after lines that say what it
// is.
struct Mark {
  const char* format;
  int linesBefore;
  const char* firstLine;  // what the first of them must be; null is any
};
constexpr Mark marks[] = {
    {"x-special/gnome-copied-files", 1, nullptr},
    {"x-special/mate-copied-files", 1, nullptr},
    {"text/plain", 2, "x-special/nautilus-clipboard"},
    {"text/plain;charset=utf-8", 2, "x-special/nautilus-clipboard"},
};

QList<QUrl> addressesIn(const QByteArray& lines, const Mark& mark) {
  QList<QUrl> addresses;
  const QList<QByteArray> all = lines.split('\n');
  if (mark.firstLine && all.front().trimmed() != mark.firstLine) return addresses;
  for (qsizetype i = mark.linesBefore; i < all.size(); ++i) addresses << QUrl::fromEncoded(all[i].trimmed());
  return addresses;
}

QList<QUrl> addressesIn(const QMimeData& data) {
  if (data.hasUrls()) return data.urls();
  for (const Mark& mark : marks)
    if (const QString format = QString::fromLatin1(mark.format); data.hasFormat(format))
      if (const auto addresses = addressesIn(data.data(format), mark); !addresses.isEmpty()) return addresses;
  return {};
}

bool onThisMachine(const QString& host) {
  return host.isEmpty() || host == QStringLiteral("localhost") ||
         host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

// A name with a "\" would be read as a folder and another name: some other file.
std::optional<Text> fileOf(QUrl address) {
  if (!address.isLocalFile() || !onThisMachine(address.host())) return {};
  address.setHost(QString());
  const QString file = address.toLocalFile();
  if (file.isEmpty() || file.contains(u'\\') || file.contains(QChar::Null)) return {};
  return logicPath(fromQt(file));
}

}  // namespace

std::vector<Text> filesOf(const QMimeData* data) {
  std::vector<Text> files;
  if (!data) return files;
  for (const QUrl& address : addressesIn(*data))
    if (auto file = fileOf(address)) files.push_back(std::move(*file));
  return files;
}

ObjectRef dragData(const QMimeData& data) {
  auto files = std::make_shared<Collection>();
  const auto paths = filesOf(&data);
  for (const Text& path : paths) files->add(path);
  auto object = std::make_shared<MemberTable>();
  object->method(u"GetFormat", [any = !paths.empty()](Arguments arguments) -> Variant {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    return any && arguments[0].toLong() == Clipboard::filesFormat;
  });
  object->property(u"Files", [files](Arguments arguments) -> Variant {
    if (arguments.empty()) return files;
    return files->get(u"", arguments);
  });
  return object;
}

bool FileDrops::possible(const QDropEvent& event) const {
  const auto* source = qobject_cast<const QWidget*>(event.source());
  return !Progress::current().breathing() && (event.possibleActions() & Qt::CopyAction) &&
         !(source && source->window() == widget_.window()) && !filesOf(event.mimeData()).empty();
}

void FileDrops::over(QDropEvent& event) {
  std::int32_t effect = 0;
  if (possible(event)) {
    effect = 1;
    control_->form().userDragsOver(*control_, dragData(*event.mimeData()), effect);
  }
  event.setDropAction(Qt::CopyAction);
  event.setAccepted(effect != 0);
}

void FileDrops::dropped(QDropEvent& event) {
  event.setAccepted(possible(event));
  if (!event.isAccepted()) return;
  event.setDropAction(Qt::CopyAction);
  Progress::current().expect(filesOf(event.mimeData()).size());
  control_->form().userDrops(*control_, dragData(*event.mimeData()));
}

}  // namespace ovalia::desktop
