#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Files from a dialog, from the clipboard, and those dragged over the card and dropped on it. They have no
// effect yet: nothing is accepted.
void AdjuntarDocumento(Instance& nota, bool NotaGrabada);
void PegarDePortapapeles(Instance& nota);
void dNota_OLEDragOver(Instance& nota, const ObjectRef& data, std::int32_t& effect);
void dNota_OLEDragDrop(Instance& nota, const ObjectRef& data);

}  // namespace ovalia
