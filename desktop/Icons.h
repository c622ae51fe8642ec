#pragma once

#include <QIcon>

#include "platform/Text.h"

namespace ovalia::desktop {

// The program's own drawings, sharp at any size and resolution: of a tool by its id, of a card's ornament by
// its control's name, of a document by its key in the image lists ("doc", "txt" ...), "calendario" for the
// date pickers. A null icon for any other name.
QIcon icon(TextView name);

}  // namespace ovalia::desktop
