#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Prepares a card whose window has just come into being: its place, the recalled width of the document pane,
// the lists, one salesperson or two, the tools that this list cannot use. It ends at the first step that
// fails; the card then opens with what was done so far.
void dNota_Load(Instance& nota);

}  // namespace ovalia
