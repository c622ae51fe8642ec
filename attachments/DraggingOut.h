#pragma once

#include "instance/Instance.h"

namespace ovalia {

// The stored file of the attachment that is selected in the card's list, for one who drags it out of the
// window. `ruta` stays as it is where nothing is selected or there is no file of exactly that name. No folder
// is made for it. Nothing is reported, as with all that is dragged.
void dNota_OLEStartDrag(const Instance& nota, Text& ruta);

}  // namespace ovalia
