#include "desktop/DialogOwner.h"

#include <QApplication>
#include <QWindow>
#include <utility>

namespace ovalia::desktop {

namespace {
QPointer<QWidget> acting;
}

ActingWindow::ActingWindow(QWidget& window) : before_(std::exchange(acting, &window)) {}
ActingWindow::~ActingWindow() { acting = before_; }

QWidget* dialogOwner() {
  QWidget* modal = QApplication::activeModalWidget();
  // A window that belongs to the modal one is as free as that, and above it.
  if (modal && acting && acting->parentWidget() == modal) modal = acting;
  for (QWidget* window : {modal, QApplication::activeWindow()})
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
