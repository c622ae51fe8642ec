#include "host/Application.h"

#include "platform/Failure.h"
#include "platform/Platform.h"
#include "routines/ErrorLog.h"

namespace ovalia::host {

namespace {
constexpr int exclamation = 48;
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    const Failure escaped = currentFailure();
    if (!Platform::installed()) return true;
    EscribirErrLog(escaped.description(), escaped.number(), u"Agencia");
    if (telling_) return true;
    telling_ = true;
    Platform::current().screen->messageBox(
        u"No se ha podido terminar lo que ha pedido." + Text(CRLF) + Text(CRLF) + escaped.description(),
        exclamation, u"");
    telling_ = false;
    return true;
  }
}

}  // namespace ovalia::host
