#include "cards/NewAnnotation.h"

namespace ovalia {

bool Nuevo(Instance&) { return false; }

}  // namespace ovalia
