#pragma once

#include <optional>

#include "host/Calendar.h"
#include "host/Schema.h"

namespace ovalia::host {

// A visit as an event of a calendar: its people as contacts and, since few calendars show those, in its text
// as well; cancelled, confirmed or tentative; the reminder as an alarm. A visit whose end is missing or not
// behind its start lasts an hour; one without a subject has the title "Visita". Nothing for a visit without a
// start, which no calendar has a place for. `agency` and `number` tell the agency's offices apart. Fails with
// 3021 for a visit that is gone.
std::optional<CalendarEvent> visitEvent(dao::Database& database, const AnnotationTable& visits,
                                        std::int32_t visit, std::int32_t agency, std::int32_t number);

}  // namespace ovalia::host
