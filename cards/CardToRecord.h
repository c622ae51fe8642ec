#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Writes the card in use into the current row of `crs`: one Edit, the fields of the form and those of all
// cards, one Update. Whether the Update went through. After a failure the edit stays pending with the fields
// written so far. A date's text that does not convert is reported by itself, and its field left out.
bool GrabaRegistro(Instance& nota);

}  // namespace ovalia
