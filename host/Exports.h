#pragma once

#include "host/Schema.h"
#include "host/Workplace.h"

// Annotations as files for other programs. A row that another user has deleted meanwhile is told.
namespace ovalia::host {

// A note as readable text, a line a field, empty fields left out, the names of its documents at the end.
// Fails with 3021 for a note that is gone.
Text noteText(dao::Database& database, const AnnotationTable& notes, std::int32_t note);

void exportNote(Workplace& workplace, const AnnotationTable& notes, std::int32_t note);

// As a calendar; a visit without a start is told instead.
void exportVisit(Workplace& workplace, const AnnotationTable& visits, std::int32_t visit);

// Asks where to and writes it there as UTF-8. What stands there is replaced once the new file is whole; when
// that cannot be written it stays, and the user is told. Nothing happens when the user cancels.
void exportTo(Workplace& workplace, const FileQuestion& question, TextView text);

}  // namespace ovalia::host
