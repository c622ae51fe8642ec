#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Files dragged over the card and dropped on it. They have no effect yet: nothing is accepted.
void dNota_OLEDragOver(Instance& nota, const ObjectRef& data, std::int32_t& effect);
void dNota_OLEDragDrop(Instance& nota, const ObjectRef& data);

}  // namespace ovalia
