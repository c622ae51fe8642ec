#pragma once

#include "host/Workplace.h"

// Annotations as files for other programs.
namespace ovalia::host {

// The current row of a list of notes as readable text, a line a field, empty fields left out.
Text noteText(dao::Recordset& rows);

// The current row of a list of visits as one iCalendar event. A visit without a start has no time; one whose
// end is missing or not after its start lasts an hour.
Text visitCalendar(dao::Recordset& rows);

// Asks where to and writes it there as UTF-8; nothing happens when the user cancels.
void exportTo(Workplace& workplace, const FileQuestion& question, TextView text);

}  // namespace ovalia::host
