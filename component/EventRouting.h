#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Connects the events of a card to the common handlers, which work on the card in use, whichever that is.
void connectCard(Instance& nota, forms::CardForm& card);

}  // namespace ovalia
