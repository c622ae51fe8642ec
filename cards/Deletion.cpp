#include "cards/Deletion.h"

namespace ovalia {

void Borrar(Instance&, bool, TextView) {}

}  // namespace ovalia
