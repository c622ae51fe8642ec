#pragma once

#include <cstdint>

#include "platform/Text.h"

namespace ovalia {

// Appends two lines to the log: moment, description, [number], routine, active form and control; then the
// loaded forms. Number -1000 stands for "none". An empty `ErrLogPath` is filled with the default first. A log
// that cannot be written is told by a message, and the entry is lost; that is not reported, and nothing is
// thrown but the failure of a message that cannot be shown.
void EscribirErrLog(TextView descripcion, std::int32_t numero, TextView rutina);

}  // namespace ovalia
