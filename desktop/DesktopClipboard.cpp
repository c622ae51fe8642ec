#include "desktop/DesktopClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include "desktop/DiskFile.h"
#include "desktop/DropData.h"
#include "desktop/Progress.h"

namespace ovalia::desktop {

namespace {

constexpr int copyEffect = 1;

const QMimeData* contents() { return QGuiApplication::clipboard()->mimeData(); }

}  // namespace

bool DesktopClipboard::has(int format) {
  if (format == filesFormat) return !filesOf(contents()).empty();
  return format == bitmapFormat && contents() && contents()->hasImage();
}

bool DesktopClipboard::open() {
  paths_.clear();
  return QGuiApplication::clipboard() != nullptr;
}

void DesktopClipboard::empty() { QGuiApplication::clipboard()->clear(); }

bool DesktopClipboard::setFiles(std::span<const Text> paths) {
  paths_.assign(paths.begin(), paths.end());
  put(false);
  return true;
}

bool DesktopClipboard::setDropEffect(int effect) {
  if (effect != copyEffect) return false;
  put(true);
  return true;
}

void DesktopClipboard::put(bool marked) {
  auto* data = new QMimeData;
  QList<QUrl> addresses;
  QByteArray mark("copy");
  for (const Text& path : paths_) {
    addresses.push_back(QUrl::fromLocalFile(diskFile(path)));
    mark += '\n' + addresses.back().toEncoded();
  }
  data->setUrls(addresses);
  if (marked) {
    data->setData(QStringLiteral("x-special/gnome-copied-files"), mark);
    data->setData(QStringLiteral("application/x-kde-cutselection"), "0");
  }
  QGuiApplication::clipboard()->setMimeData(data);
}

std::vector<Text> DesktopClipboard::files() {
  std::vector<Text> files = filesOf(contents());
  Progress::current().expect(files.size());
  return files;
}

void DesktopClipboard::close() {}

}  // namespace ovalia::desktop
