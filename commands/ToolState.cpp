#include "commands/ToolState.h"

namespace ovalia {

void CambiarMenu(Instance&, TextView, std::int32_t, TextView) {}

}  // namespace ovalia
