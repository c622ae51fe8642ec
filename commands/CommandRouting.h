#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Runs the command of a tool, by the exact text of its group and id; one that is not known does nothing.
// Whether the tool can be clicked is not asked.
void dNota_Menu(Instance& nota, TextView Tab, TextView Tool);

}  // namespace ovalia
