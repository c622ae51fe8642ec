#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Gives the card in use the look of a new annotation. It has no effect yet: a list without a current row
// leaves the card as it was.
void FichaLimpia(Instance& nota);

}  // namespace ovalia
