#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Lists the attachments of the current row; takes over a name edited in the list. They have no effect yet.
void RefrescoDocs(Instance& nota);
void dlgNota_ActualizaDocs(Instance& nota, TextView texto);

// What can be done with an attachment of the list: open it, copy it to the clipboard, save it elsewhere,
// delete it by its stored name. They have no effect yet: nothing is opened, copied, saved or deleted.
void AbrirDocNota(Instance& nota);
void CopiarAPortapapeles(Instance& nota);
void GuardarComo(Instance& nota);
bool BorrarDocNota(Instance& nota, Text& NArch, bool Preguntar);

}  // namespace ovalia
