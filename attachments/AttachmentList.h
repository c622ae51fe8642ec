#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Lists the attachments of the current row; takes over a name edited in the list. They have no effect yet.
void RefrescoDocs(Instance& nota);
void dlgNota_ActualizaDocs(Instance& nota, TextView texto);

}  // namespace ovalia
