#include "desktop/DialogOwner.h"

#include <QApplication>
#include <QWindow>

namespace ovalia::desktop {

QWidget* dialogOwner() {
  QWidget* modal = QApplication::activeModalWidget();
  QWidget* active = QApplication::activeWindow();
  // A window that belongs to the modal one is as free as that, and above it.
  if (modal && active && active->parentWidget() && active->parentWidget()->window() == modal) modal = active;
  for (QWidget* window : {modal, active})
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
