#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Inserts a new annotation and shows it blank; shows nothing when it could not be created. A `Tipo` outside
// the four does nothing.
void CreaNota(Instance& nota);

// Shows the annotation on which `crs` stands; returns when the card is hidden or unloaded. A `Tipo` outside
// the four does nothing but take down the host's active form.
void AbreNota(Instance& nota);

// Whether the card may close: not while a control fails its check or the user cancels the question about
// unsaved changes. A card that may close stores its place and the width of its document pane.
void dNota_UnLoad(Instance& nota, bool& Cancel);

// Unloads the cards that were ever opened, in the order of the kinds.
void Class_Terminate(Instance& nota);

}  // namespace ovalia
