#pragma once

#include <vector>

#include "platform/Text.h"

namespace ovalia::standins {

// What stands in this program for procedures that have no effect yet: each notes that it was called, and with
// what, as "BorrarDocNota(120F00.doc, True)". So a command can be seen to reach its procedure. A procedure
// that comes to do its work loses its stand-in, with those that share its source file, and is tested by its
// effect.
std::vector<Text>& calls();

}  // namespace ovalia::standins
