#include "models/Outputs.h"

namespace ovalia {

void ImprimirNota(Instance&) {}

void EMailNota(Instance&) {}

void ExportarNota(Instance&) {}

void ExportarVisita(Instance&) {}

}  // namespace ovalia
