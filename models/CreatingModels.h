#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Makes a model of a stored document: its stored name and the name it is shown by. It has no effect yet: no
// form opens.
void CrearModelo(Instance& nota, Text& NArch, Text& NOrg);

}  // namespace ovalia
