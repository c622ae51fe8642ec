#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Inserts a new annotation and shows it blank; shows nothing when it could not be created. A `Tipo` outside
// the four does nothing.
void CreaNota(Instance& nota);

// Shows the annotation on which `crs` stands; returns when the card is hidden or unloaded. A `Tipo` outside
// the four does nothing but take down the host's active form.
void AbreNota(Instance& nota);

// Unloads the cards that were ever opened, in the order of the kinds.
void Class_Terminate(Instance& nota);

}  // namespace ovalia
