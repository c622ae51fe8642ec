#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Files reach the current annotation from a dialog, from the clipboard and by being dropped on the card. Each
// is copied into the folder of the host's record on top, under a name of its own, complete and on disk before
// its row is written (AniadirArch). What lies there is never replaced: a name that is taken meanwhile makes
// the copy fail (58). Neither the state of the card nor its fields change.

// The files that the user chooses in the main form's dialog; cancelling (32755) ends it without a word.
// Without `NotaGrabada` they are copied and no row is written. What fails with one file is reported, and the
// others are added all the same.
void AdjuntarDocumento(Instance& nota, bool NotaGrabada);

// Copies one file and, if `registrar`, writes its row. A failure is reported with the path; a file that was
// copied stays.
void AdjuntarFichero(Instance& nota, TextView ruta, std::int32_t Id, bool registrar);

// The files on the clipboard. On a list without attachments it does nothing.
void PegarDePortapapeles(Instance& nota);

// Whether files may be dropped here: `effect` becomes 1, a copy, or 0. A failure leaves it as it is.
// `data` answers GetFormat(15).
void dNota_OLEDragOver(Instance& nota, const ObjectRef& data, std::int32_t& effect);

// The files of `data`: Files.Count, Files(1) to Files(Count). On a list without attachments it does nothing.
// Of its own it reports nothing.
void dNota_OLEDragDrop(Instance& nota, const ObjectRef& data);

}  // namespace ovalia
