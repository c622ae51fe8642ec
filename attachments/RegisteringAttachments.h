#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Writes the row of a stored file: `NOrg` is the path or name it came by, of which the file's name is what
// the user will be shown, `NProg` its stored name. The row hangs on the current row of `crs`, whose counter
// rises by one; that row must not be in the middle of an edit, which would be dropped. A visible card's list
// is filled again. True when the row went in.
//
// A name that equals a stored one is shown as a copy. In an archive table it is not, and the row takes its
// key from the live table: a row is added there, on any annotation, its key read, the row deleted. When that
// key cannot be read again the user is told, the counter rises and the result is true, though the archive has
// no row. No file and no row is ever taken back after a failure, which is reported and gives false.
bool AniadirArch(Instance& nota, TextView NOrg, TextView NProg);

}  // namespace ovalia
