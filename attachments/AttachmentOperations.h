#pragma once

#include "instance/Instance.h"

namespace ovalia {

// What can be done with the attachment that is selected in the card's list; without one each is reported
// (91). Nothing here changes the row, its counter or the state of the card.

// The host opens the document (AbrirDoc), or it goes onto the clipboard so that the file manager can paste
// it. The user is told when there is no file of exactly that name in the folder of the annotation's parent.
void AbrirDocNota(Instance& nota);
void CopiarAPortapapeles(Instance& nota);

// Copies the document to where the user chooses in the main form's dialog; cancelling (32755) ends it without
// a word. The folder is that of the record that the host's form shows or is adding. A chosen name without an
// extension gets the stored one. A file that the user chose as the target goes to the recycle bin and is
// replaced without a word, even where the bin did not take it; a document that cannot be found or is a folder
// replaces nothing, nor does one that was to replace itself (70), by whatever path.
void GuardarComo(Instance& nota);

// Gives the attachment another name to be shown by, in all rows of the table with that stored name. The file
// keeps its name.
void dlgNota_ActualizaDocs(Instance& nota, TextView nuevo);

}  // namespace ovalia
