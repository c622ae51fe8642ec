#pragma once

#include "host/TourDocuments.h"

namespace ovalia::host {

// The chapter on printing: a card of each kind is printed with a template of its kind, one into a PDF file,
// the others as documents that are then turned into PDF. What the database holds of the annotation and of its
// property has to be found on the page, of which there is a picture.
void playPrints(const TourCast& cast, CardPage& page);

}  // namespace ovalia::host
