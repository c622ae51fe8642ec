#include "commands/CommandRouting.h"

namespace ovalia {

void dNota_Menu(Instance&, TextView, TextView) {}

}  // namespace ovalia
