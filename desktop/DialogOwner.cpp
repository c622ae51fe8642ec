#include "desktop/DialogOwner.h"

#include <QApplication>
#include <QWindow>

namespace ovalia::desktop {

QWidget* dialogOwner() {
  for (QWidget* window : {QApplication::activeModalWidget(), QApplication::activeWindow()})
    if (window && window->isVisible()) return window;
  return nullptr;
}

void standOver(QWidget& dialog, QWidget* owner) {
  if (!owner) return;
  dialog.winId();
  dialog.windowHandle()->setTransientParent(owner->window()->windowHandle());
  dialog.move(owner->window()->frameGeometry().center() - dialog.rect().center());
}

}  // namespace ovalia::desktop
