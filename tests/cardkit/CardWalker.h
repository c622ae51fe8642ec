#pragma once

#include <string>
#include <vector>

#include "instance/Instance.h"

namespace ovalia::kit {

// Walks over the controls of the card in use that show a field and holds each against the current row of
// `crs`, by rules written down here once more: a line for each control that does not show what its field
// holds, with both. Empty after any fill that was completed.
std::vector<std::string> guiltyControls(const Instance& nota);

// What a user reads on a control: a text, "0" or "1" of a check box, "dd/MM/yy" or "hh:mm:ss" of a picker
// ("-" for no date, "unticked" for Null), the caption of a label.
Text onCard(forms::Control& control);

}  // namespace ovalia::kit
