#include "cards/Validation.h"

namespace ovalia {

bool ComprobarCambio(Instance&, bool) { return true; }

void dNota_VerLista(Instance&) {}

}  // namespace ovalia
