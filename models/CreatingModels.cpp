#include "models/CreatingModels.h"

namespace ovalia {

void CrearModelo(Instance&, Text&, Text&) {}

}  // namespace ovalia
