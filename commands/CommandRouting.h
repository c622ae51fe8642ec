#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Runs the command of a tool. It has no effect yet.
void dNota_Menu(Instance& nota, TextView category, TextView id);

}  // namespace ovalia
