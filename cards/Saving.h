#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Resolves unsaved changes; whether the caller may go on. It has no effect yet: nothing counts as changed.
bool AvisoCambio(Instance& nota, TextView Preguntar, TextView Accion);

}  // namespace ovalia
