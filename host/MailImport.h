#pragma once

#include "host/AnnotationList.h"

// Mails become notes.
namespace ovalia::host {

// Whether the list takes mails: one of notes, of a record, that new ones can be made in.
bool takesMails(const AnnotationList& list);

// Asks for mails that were saved as files (.eml) and makes a note of each: its subject, its day, who wrote it
// to whom, its text; what is attached to it becomes documents of the note. Gives the key of the last note, 0
// without one; the list itself is not touched. What cannot be imported is told when all are through, and the
// rest is. A note whose attachments fail stays.
std::int32_t importMails(Workplace& workplace, const AnnotationList& list);

}  // namespace ovalia::host
