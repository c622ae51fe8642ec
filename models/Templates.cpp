#include "models/Templates.h"

namespace ovalia {

void AdjuntarPlantilla(Instance&, bool) {}

void AdjuntarModelo(Instance&, bool) {}

}  // namespace ovalia
