#include "attachments/AttachmentList.h"

namespace ovalia {

void RefrescoDocs(Instance&) {}

void dlgNota_ActualizaDocs(Instance&, TextView) {}

void AbrirDocNota(Instance&) {}

void CopiarAPortapapeles(Instance&) {}

void GuardarComo(Instance&) {}

bool BorrarDocNota(Instance&, Text&, bool) { return false; }

}  // namespace ovalia
