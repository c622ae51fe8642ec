#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Checks the active control; whether the caller may go on. It has no effect yet: every control passes.
bool ComprobarCambio(Instance& nota, bool Preguntar);

// Opens the list of the active control. It has no effect yet.
void dNota_VerLista(Instance& nota);

}  // namespace ovalia
