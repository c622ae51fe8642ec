#pragma once

#include "instance/Instance.h"

namespace ovalia {

// What the attachment procedures ask of the list and of the host's form on top. None has a trap.

// Whether the annotations of the list keep attachments at all: their counter is a column of it.
bool keepsAttachments(const Instance& nota);

// The number of the record that the form on top shows.
std::int32_t hostRecord(const Instance& nota);

// The same, or the number set aside for a record that the form is adding. Takes the form on top as
// `FormActiva`. Both numbers are asked for whichever is chosen, so that the key must be readable for a record
// being added too.
std::int32_t hostRecordOrNew(Instance& nota);

}  // namespace ovalia
