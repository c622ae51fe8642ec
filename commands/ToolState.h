#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Enables the tools by the state of the card. It has no effect yet.
void CambiarMenu(Instance& nota, TextView Accion, std::int32_t Estado, TextView Detalle);

}  // namespace ovalia
