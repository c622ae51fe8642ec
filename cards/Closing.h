#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Whether the card may close: not while a control fails its check or the user cancels the question about
// unsaved changes. A card that may close stores its place and the width of its document pane.
void dNota_UnLoad(Instance& nota, bool& Cancel);

}  // namespace ovalia
