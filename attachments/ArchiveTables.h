#pragma once

#include "platform/Text.h"

namespace ovalia {

// Whether a table of attachments belongs to archived records: its name has "Arch" in it, to the letter.
bool isArchiveTable(TextView DocuAsoc);

// The tables of the records still alive that belong to an archive table and to its table of annotations, and
// the column of the parent in the annotations.
struct LiveTables {
  Text notes, attachments, parentColumn;
};

// Failure 5 where a name would have to lose its last four characters and has fewer.
LiveTables liveTablesOf(TextView DocuAsoc, TextView Nota);

}  // namespace ovalia
