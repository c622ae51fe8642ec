#include "cards/BlankCard.h"

namespace ovalia {

void FichaLimpia(Instance&) {}

}  // namespace ovalia
