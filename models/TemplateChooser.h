#pragma once

#include <optional>

#include "instance/Instance.h"

namespace ovalia {

// A template that the user chose: its path, "\"-separated, "" where the chooser was accepted and names none;
// and the chooser, which is to be held until the document is filled.
struct ChosenTemplate {
  Text path;
  ObjectRef chooser;
};

// Lets the user choose a template in the chooser "Perlaz.CPerlaz": of the folder of the models, or of one
// below it, `folder`, with its final "\". `HayDonde` is one of the chooser's own switches. An accepted
// chooser has taken the host's form on top as `FormActiva`. Nothing where the user cancels or the folder has
// no templates or is missing, of which the user is told. No trap: 429 without a chooser.
std::optional<ChosenTemplate> chosenTemplate(Instance& nota, TextView folder, bool HayDonde);

}  // namespace ovalia
