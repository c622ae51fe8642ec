#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Print the annotation on a template, mail it, hand it to the host's exports. They have no effect yet: no
// event is raised.
void ImprimirNota(Instance& nota);
void EMailNota(Instance& nota);
void ExportarNota(Instance& nota);
void ExportarVisita(Instance& nota);

}  // namespace ovalia
