#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Hangs the annotations that are marked in `grdNota` of the host's form on another parent record, with
// another client, and takes their attachments along. For each annotation: its files are copied into the new
// parent's folder under new names, which are free on disk; the annotation is linked to the new parent; then
// each old file goes to the recycle bin and its row takes the new name and parent. A file that is missing,
// also one whose spelling differs in case, loses its row, and the user is told twice. A copy that is not
// there afterwards is told, and does not stop the rest; nor does an old file that the bin did not take.
//
// `crs`, the card, the grid and the counters are not touched: the host reads again what it shows. A failure
// is reported and ends it, with what was moved so far in place; a folder that cannot be made is one (76)
// where the annotation has attachments, before anything of it is touched.
void TrasladaNotas(Instance& nota, std::int32_t NuevoId, std::int32_t NuevoCliente);

}  // namespace ovalia
