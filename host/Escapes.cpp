#include "host/Escapes.h"

#include "platform/Failure.h"
#include "platform/Platform.h"
#include "routines/ErrorLog.h"

namespace ovalia::host {

namespace {
constexpr int exclamation = 48;
}

void tellEscaped() {
  static bool telling = false;
  const Failure escaped = currentFailure();
  if (!Platform::installed()) return;
  EscribirErrLog(escaped.description(), escaped.number(), u"Agencia");
  if (telling) return;
  telling = true;
  Platform::current().screen->messageBox(
      u"No se ha podido terminar lo que ha pedido." + Text(CRLF) + Text(CRLF) + escaped.description(),
      exclamation, u"");
  telling = false;
}

}  // namespace ovalia::host
