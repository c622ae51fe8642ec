#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Shows the current row of `crs` on the card in use; a list without a current row blanks it and leaves the
// state at 3. `Accion` is handed on to the tools' state and has no other effect. A failure on the way leaves
// the card half filled and in state 3.
void RefrescoFicha(Instance& nota, TextView Accion);

// Writes the card's title, and has the host's form count its annotations again.
void RefrescoCaption(Instance& nota);

// Writes a date's text into a field of `crs`; a blank text leaves the field as it is.
void FechayHora(Instance& nota, TextView Campo, TextView Valor);

}  // namespace ovalia
