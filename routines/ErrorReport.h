#pragma once

#include <cstdint>

#include "platform/Failure.h"
#include "platform/Text.h"

namespace ovalia {

// The failure that a trap has caught and not yet dealt with.
struct PendingError {
  std::int32_t number = 0;  // 0: none
  Text description;

  PendingError() = default;
  explicit PendingError(const Failure& failure)
      : number(failure.number()), description(failure.description()) {}
  void clear() { *this = {}; }
};

// Tells the user about a failure, writes it into the log and offers the support report. `rutina` is the
// literal name of the procedure, which the user and the log are shown.
//
// It has no trap: what fails in here (a box that cannot be shown; the reload of the host's records after
// 3167, which is asked of the screen's active form, whatever that is) reaches the caller, and then neither
// the log is written nor `MensajeEnCurso` put back. `error` is cleared only when the user asks for the
// report.
void GestionarError(TextView rutina, PendingError& error);

// Whether failures without a text of their own are shown to the user. They always are.
bool PermitirAvisoError();

}  // namespace ovalia
