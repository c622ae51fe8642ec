#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Inserts a new annotation and puts the card on it, blank; false when there is none. It has no effect yet: no
// row is made.
bool Nuevo(Instance& nota);

}  // namespace ovalia
