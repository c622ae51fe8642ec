#pragma once

#include "exchange/Marks.h"
#include "instance/Instance.h"

namespace ovalia {

// The name of the control that has the focus on the host's form on top. Failure 91 where there is no form or
// no such control. No trap.
Text hostsActiveControl(const Instance& nota);

// The marks of the current row of a list of the host, and the additional data where the row has a property
// and a client. A mark whose field is missing or Null has its name and no text; with `modo` 0 the notes have
// none. Which grid of the host has the focus decides on the table of the attachments, and on the marks that
// only visits have. A failure is reported, and the marks behind it stay empty, their names too.
void Datos_rsDlg(Instance& nota, const dao::RecordsetRef& rs, Marks& marks, std::int32_t modo);

}  // namespace ovalia
