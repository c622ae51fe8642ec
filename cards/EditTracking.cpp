#include "cards/EditTracking.h"

namespace ovalia {

void dNota_Cambio(Instance&, const forms::ControlRef&, TextView) {}

void dNota_CogerFoco(Instance&, const forms::ControlRef&) {}

}  // namespace ovalia
