#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Deletes the annotation on which `crs` stands, after a question if `Preguntar`. `Accion` is what the caller
// is about to do, "UnLoad" where the card is closing.
void Borrar(Instance& nota, bool Preguntar, TextView Accion);

// Deletes the annotation with that key, -1 the current one, with the attachments that the card lists, and
// shows its neighbour: the next row, behind the last the one before. The neighbour is that of the current
// row, whichever is deleted. The card is hidden where there is none and where it is closing; `crs` then
// stands on its first row if it has one and the card is closing, else on none. The state ends at 0.
//
// Nothing is deleted, and the state stays, while the card is being filled, when the user does not want the
// attachments deleted, when the annotation is not in `crs` (reported, and `crs` is where it was), and when
// other records use it (3200): the user is told, but the attachments, which go first, are gone. Any other
// failure of the deletion itself counts as done.
void BorrarUno(Instance& nota, std::int32_t ParamBorrar, TextView Accion);

// Asks whether the attachments that the card lists may go, and deletes them from the last to the first;
// whether the annotation may go too. The first that cannot be deleted ends it with false; those before it
// stay deleted. They are deleted as attachments of the current row of `crs`, so that the card must be showing
// that row. A failure is reported and gives what was reached: true unless somebody said no.
bool SemiBorrar(Instance& nota, std::int32_t NumBorrar);

// What follows a deletion. Nothing does.
void AfterBorrar(Instance& nota, std::int32_t NumBorrar);

}  // namespace ovalia
