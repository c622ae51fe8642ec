#include "host/PlaceMemory.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <optional>

#include "desktop/QtText.h"
#include "platform/Platform.h"

namespace ovalia::host {

namespace {

constexpr TextView section = u"MainWindow";
constexpr int normal = 0, maximised = 2;
constexpr int leastSize = 100;

std::optional<int> kept(TextView key) {
  const Platform& here = Platform::current();
  bool good = false;
  const int value = desktop::toQt(here.settings->get(here.app.title, section, key, u"")).toInt(&good);
  if (!good) return {};
  return value;
}

void keep(TextView key, int value) {
  const Platform& here = Platform::current();
  here.settings->save(here.app.title, section, key, toText(value));
}

QRect fitted(QRect place) {
  const QScreen* screen = QGuiApplication::screenAt(place.center());
  if (!screen) screen = QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  place.setSize(place.size().expandedTo({leastSize, leastSize}).boundedTo(room.size()));
  place.moveLeft(std::clamp(place.left(), room.left(), room.right() + 1 - place.width()));
  place.moveTop(std::clamp(place.top(), room.top(), room.bottom() + 1 - place.height()));
  return place;
}

}  // namespace

void keepPlace(const QWidget& window) {
  if (window.isMinimized()) return;
  keep(u"Estado", window.isMaximized() ? maximised : normal);
  if (window.isMaximized()) return;
  keep(u"Left", window.x());
  keep(u"Top", window.y());
  keep(u"Width", window.width());
  keep(u"Height", window.height());
}

void restorePlace(QWidget& window) {
  const auto left = kept(u"Left"), top = kept(u"Top"), width = kept(u"Width"), height = kept(u"Height");
  if (left && top && width && height) {
    const QRect place = fitted({*left, *top, *width, *height});
    window.resize(place.size());
    window.move(place.topLeft());
  }
  if (kept(u"Estado") == maximised) window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

}  // namespace ovalia::host
