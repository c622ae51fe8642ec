#pragma once

#include "instance/Instance.h"

namespace ovalia {

// The save command. A changed card whose record another user has written since is not saved: the user is
// told, and the card shows that user's version. A clean card, and one whose active control does not pass its
// check, is left alone. `Preguntar` goes on to AvisoCambio.
void Guardar(Instance& nota, TextView Preguntar);

// The undo command, without a question: shows the record again, or deletes the row of a new annotation. A
// list without rows hides the card.
void DeshacerCambios(Instance& nota);

// Resolves unsaved changes; whether the caller may go on. With `Preguntar` "Preguntar" the user decides,
// else the card is saved. The user may keep the changes (the card stays as it is when the write fails), drop
// them (a new annotation's row goes; the card is not filled again) or cancel. `Accion` is what the caller is
// about to do: "Save", "Move" or "UnLoad"; after "Move" the caller refills the card itself. It does not look
// whether another user has written the record. A failure half-way leaves the hourglass on.
bool AvisoCambio(Instance& nota, TextView Preguntar, TextView Accion);

// What may refuse a write before it begins. Nothing does.
bool Preguardar();

}  // namespace ovalia
