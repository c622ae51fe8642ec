#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Deletes the annotation on the card, after a question if `Preguntar`. It has no effect yet: the row stays.
void Borrar(Instance& nota, bool Preguntar, TextView Accion);

}  // namespace ovalia
