#pragma once

#include "host/TourDocuments.h"

namespace ovalia::host {

// Makes the program write its mails in its own dialog on a tour. The server that it names is this machine,
// where none listens: nothing can leave.
void prepareMail();

// The chapter on mail: one is written from the card of a note with documents and kept as a file in the tour's
// folder, from which it is told what would have been sent.
void playMail(const TourCast& cast, CardPage& page);

}  // namespace ovalia::host
