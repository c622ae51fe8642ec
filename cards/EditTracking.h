#pragma once

#include "instance/Instance.h"

namespace ovalia {

// A control has changed, a control has taken the focus. They have no effect yet: a card stays clean.
void dNota_Cambio(Instance& nota, const forms::ControlRef& control, TextView campo);
void dNota_CogerFoco(Instance& nota, const forms::ControlRef& control);

}  // namespace ovalia
