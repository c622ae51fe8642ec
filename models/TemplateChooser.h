#pragma once

#include <optional>

#include "instance/Instance.h"

namespace ovalia {

// Lets the user choose a template in the chooser "Perlaz.CPerlaz": of the folder of the models, or of one
// below it, `folder`, with its final "\". `HayDonde` is one of the chooser's own switches. Gives the
// template's path, "\"-separated, having taken the host's form on top as `FormActiva`; it is "" where a
// chooser that was accepted names none. Nothing where the user cancels or the folder has no templates or is
// missing, of which the user is told. No trap: 429 without a chooser.
std::optional<Text> chosenTemplate(Instance& nota, TextView folder, bool HayDonde);

}  // namespace ovalia
