#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Inserts the row of a new annotation, finds it again in the `crs` that the host has reloaded, by parent,
// user and second of creation, and puts the card on it, blank and in state 1. Unsaved work is resolved first;
// a control that fails its check does not hold the creation up, and then nothing is asked.
//
// False when the user keeps the card as it is, when the row is not found again (it stays in the table, and
// the card on its own) and after any failure, which is reported; the row may exist by then. The host is
// called back meanwhile: CargaRegistros, CompletarNueva.
bool Nuevo(Instance& nota);

}  // namespace ovalia
