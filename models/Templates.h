#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Documents made from what is prepared in the folder "\Plantillas\" of the user's data. Without `NotaGrabada`
// no row is written for them. A failure is reported; nothing that was done is taken back.

// A new document from a template, attached to the annotation. Its name is set aside by its row alone: the
// host makes the document there (NuevoDoc) and fills it from the marks (PasaDatosaDoc), without the notes.
// Where it does not, the row has no file.
void AdjuntarPlantilla(Instance& nota, bool NotaGrabada);

// A copy of a model that the user chooses, attached to the annotation under the model's name and opened by
// the host (AbrirDoc). The subject that the host's form shows is proposed. A model that cannot be copied
// leaves neither row nor event; a row that cannot be written leaves the copy, which is opened all the same.
void AdjuntarModelo(Instance& nota, bool NotaGrabada);

}  // namespace ovalia
