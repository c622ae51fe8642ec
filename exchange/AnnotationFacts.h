#pragma once

#include "instance/Instance.h"

namespace ovalia {

// What the marks of a card and those of a record take from the current row of a list, and how they write it.
// None has a trap.

// The parent's number where the list has it under `Id`, else the key, its first field. Failure 94 for Null.
std::int32_t annotationNumber(dao::Recordset& rows);

// Whether the row's counter is above 0; false for a list without the counter.
bool hasAttachments(dao::Recordset& rows);

// All attachments of an annotation as two texts: the names they are shown by, with a point at the end, and
// the full paths of their files.
struct AttachmentTexts {
  Text names, paths;
};

// `annotation` is its key in `table`, `parent` the number that the folder is made of, which is made where it
// is missing. Failure 76 for a stored name that can be none, so that no other file is ever sent.
AttachmentTexts attachmentTexts(const Instance& nota, std::int32_t parent, TextView table,
                                const Variant& annotation);

// "09/03/26", "10:20"; "" for Null.
Text markDate(const Variant& moment);
Text markTime(const Variant& moment);

// A date and a time as a mark has them, "09/03/26 - 10:20".
Text markMoment(TextView date, TextView time);

}  // namespace ovalia
