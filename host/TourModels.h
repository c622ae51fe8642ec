#pragma once

#include "host/TourDocuments.h"

namespace ovalia::host {

// The chapter on models: a document of a note becomes one, the list of models is shown and narrowed, and the
// new one is attached to the note. The note then has two documents more.
void playModels(const TourCast& cast, CardPage& page);

}  // namespace ovalia::host
