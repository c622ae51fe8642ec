#include "host/Application.h"

#include "host/Escapes.h"

namespace ovalia::host {

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    tellEscaped();
    return true;
  }
}

}  // namespace ovalia::host
