#pragma once

#include <optional>
#include <vector>

#include "platform/Text.h"
#include "platform/Variant.h"

// Appointments as other calendars read them: iCalendar, RFC 5545.
namespace ovalia::host {

// A zone with the European summer time, from the last Sunday of March to that of October, at one in the
// morning of the world's time.
struct CalendarZone {
  TextView id;  // of the zone database
  int offset;   // hours ahead of the world's time in winter
  TextView winter, summer;
};

// The zone of that name, or that of the mainland.
const CalendarZone& calendarZone(TextView id);

// A local time in the world's. The hour that is lived twice counts as the first.
Date worldTime(const CalendarZone& zone, Date local);

enum class CalendarStatus { Tentative, Confirmed, Cancelled };

struct CalendarEvent {
  Text uid;  // the same whenever it is exported
  Date start, end;
  std::optional<Date> changed;
  Text summary, place, text;
  std::vector<Text> contacts;
  CalendarStatus status = CalendarStatus::Tentative;
  std::optional<int> reminderMinutes;  // before the start
};

// A calendar of that event. Its times are those of the zone; `now`, when it is written, is the world's.
// Control characters are left out, line ends in texts kept.
Text calendarText(const CalendarEvent& event, const CalendarZone& zone, Date now);

}  // namespace ovalia::host
