#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Enables the tools of the card's toolbar. Clicking is not their matter: a command does not ask whether its
// tool is enabled.

// After a change of state or position: by what was done (`Accion`), by the state of the card (the saving
// tools; state 3 leaves them), by the place in the list (the four moves). The last argument is not read.
// "Ficha" asks for a tool that no card has: the failure is reported, and the other two steps are left out.
void CambiarMenu(Instance& nota, TextView Accion, std::int32_t Estado, TextView sinUso);

// The tools that need a saved record. The new-annotation tool is touched only where creation is allowed.
void DatosGuardados(Instance& nota, bool activo);

// The document tools: those for one attachment while one is selected in the list and the list has the focus,
// pasting while the clipboard holds files.
void CambiarMenuNotas(Instance& nota);

}  // namespace ovalia
