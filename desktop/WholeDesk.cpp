#include "desktop/WholeDesk.h"

#include <QGuiApplication>
#include <QScreen>

namespace ovalia::desktop {

QRect wholeDesk() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? screen->virtualGeometry() : QRect();
}

}  // namespace ovalia::desktop
