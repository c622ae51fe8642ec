#pragma once

#include "forms/CardForm.h"

namespace ovalia::forms {

// What `DateAdd("n", 30, start)` gives, to the whole second; past midnight the day part goes up by one.
Date halfHourAfter(Date start);

// Keeps the end of a visit behind its start after one of the four pickers named `changed` has changed: moving
// the start drags the end along in silence, an end before the start is refused with a message and corrected.
// A correction is a change of its own and comes back here. Other names do nothing. For what the user does:
// never while the card is being filled.
void linkVisitTimes(CardForm& card, TextView changed);

}  // namespace ovalia::forms
