#include "cards/Saving.h"

namespace ovalia {

bool AvisoCambio(Instance&, TextView, TextView) { return true; }

}  // namespace ovalia
