#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Attach a document made from a template, or a copy of a model. They have no effect yet: nothing is attached.
void AdjuntarPlantilla(Instance& nota, bool NotaGrabada);
void AdjuntarModelo(Instance& nota, bool NotaGrabada);

}  // namespace ovalia
