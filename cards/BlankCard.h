#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Gives the card in use the look of a new annotation: empty texts, the present date and time, the user, a
// title with the number of the parent record (its provisional one while that record is new itself), no
// documents. It leaves `EstadoFicha` and the database alone. Whoever calls it on a card that shows a record
// has made an edit of it. A failure on the way is reported and leaves the rest as it was; without a `vClase`
// on the host's active form that is everything.
void FichaLimpia(Instance& nota);

// Empties the text boxes of a form and nothing else. No trap.
void LimpiarTextos(forms::Form& form);

}  // namespace ovalia
