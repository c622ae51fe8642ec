#include "desktop/DesktopShell.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "desktop/DiskFile.h"
#include "desktop/FileVersion.h"
#include "system/SystemVersion.h"

namespace ovalia::desktop {

namespace {

constexpr int noSuchFile = 2;
constexpr int accessDenied = 5;
constexpr int generalFailure = 31;

// From the bottom to the top, as far as the program knows it.
QList<QWidget*> shownWindows() {
  QList<QWidget*> windows;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && !window->isMinimized()) windows.push_back(window);
  const auto rank = [](const QWidget* window) {
    if (window == QApplication::activePopupWidget()) return 3;
    if (window == QApplication::activeModalWidget()) return 2;
    return window == QApplication::activeWindow() ? 1 : 0;
  };
  std::stable_sort(windows.begin(), windows.end(),
                   [&](const QWidget* a, const QWidget* b) { return rank(a) < rank(b); });
  return windows;
}

}  // namespace

Shell::RecycleResult DesktopShell::recycle(TextView path) {
  const QString name = diskFile(path);
  if (const QFileInfo info(name); info.isDir() || (!info.exists() && !info.isSymLink()))
    return {noSuchFile, noSuchFile, false};
  QFile file(name);
  if (file.moveToTrash()) return {};
  const int code = file.error() == QFileDevice::PermissionsError ? accessDenied : generalFailure;
  return {code, code, false};
}

void DesktopShell::saveScreenPicture(TextView path) {
  const auto windows = shownWindows();
  QRect whole;
  for (const QWidget* window : windows) whole |= window->geometry();
  if (whole.isEmpty()) throw Failure(failure::pathFileAccess);
  const qreal sharpness = qApp->devicePixelRatio();
  QImage picture(whole.size() * sharpness, QImage::Format_RGB32);
  picture.setDevicePixelRatio(sharpness);
  picture.fill(Qt::lightGray);
  QPainter painter(&picture);
  for (QWidget* window : windows)
    painter.drawPixmap(window->geometry().topLeft() - whole.topLeft(), window->grab());
  painter.end();
  if (!picture.save(diskFile(path), "BMP")) throw Failure(failure::pathFileAccess);
}

Shell::SystemVersion DesktopShell::systemVersion() { return system::systemVersion(); }

std::optional<Shell::FileVersion> DesktopShell::fileVersion(TextView path) {
  return readFileVersion(diskFile(path));
}

}  // namespace ovalia::desktop
