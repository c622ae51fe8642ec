#pragma once

#include "host/HostCard.h"

namespace ovalia::host {

// The list of notes that hang on the card's own record and so can be hung on another one; null where the card
// has none.
AnnotationList* movableNotes(HostCard& card);

// Where notes went.
struct MovedNotes {
  std::int32_t record = 0;  // 0: nowhere
  Text name;                // as the user chose it
  std::int32_t count = 0;   // of those that arrived
};

// Moves the notes marked in the card's grid, with their documents, to another record of the same kind, which
// the user chooses; where none is marked the component tells so. The notes belong to that record's client
// then. The lists of open cards have to be read again. The card must be the form on top and have such notes.
MovedNotes moveMarkedNotes(HostCard& card, Workplace& workplace);

}  // namespace ovalia::host
