#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Whether the control that has the focus on the card in use may be left; it may rewrite the control. A clean
// card (state 0) is not checked. With `Preguntar` the host is offered an access type that does not exist yet,
// and the answer is false even when it makes one: the next check finds it. The host is called back meanwhile.
// A failure is reported and gives the answer reached, true where nothing had spoken against it.
bool ComprobarCambio(Instance& nota, bool Preguntar);

}  // namespace ovalia
