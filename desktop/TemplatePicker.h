#pragma once

#include "platform/Object.h"

namespace ovalia::desktop {

// The chooser of templates as the outside component of that name. Set before `Mostrar`: `HayDonde` (whether
// the user says where the document goes: to the screen, a printer or a PDF file; the answer stands in
// TemplatePicking). `HayCual` is kept and not looked at. `Mostrar(mask)` shows the files that a "\"-separated
// path names whose last component is a mask, and is true when the user chose one: `NomFich` is then its name
// and `QueImprimir` its "\"-separated path; both are "" until then. A folder that is missing, cannot be read
// or has no such file is shown as such.
ObjectRef makeTemplatePicker();

}  // namespace ovalia::desktop
