#pragma once

#include "exchange/Marks.h"
#include "instance/Instance.h"

namespace ovalia {

// The marks of the annotation that the card in use shows, from its controls as they stand, saved or not; its
// number and its attachments are those of the current row of `crs`. A mark whose control the card lacks stays
// empty, its name too. `conNotas` says whether the notes are among them. No trap: a failure ends it.
void marksOfCard(const Instance& nota, bool conNotas, Marks& marks);

}  // namespace ovalia
