#include "host/Calendar.h"

#include <cmath>

#include "platform/Regional.h"

namespace ovalia::host {

namespace {

constexpr CalendarZone zones[] = {{u"Europe/Madrid", 1, u"CET", u"CEST"},
                                  {u"Atlantic/Canary", 0, u"WET", u"WEST"}};

constexpr double hour = 1.0 / 24;
constexpr int march = 3, october = 10;
constexpr int switchHour = 1;  // of the world's time

// Day zero was a Saturday.
Date lastSunday(int year, int month) {
  const double last = dateFrom({.year = year, .month = month, .day = 31})->days;
  return {last - std::fmod(last + 6, 7)};
}

Text stamp(Date date) {
  const Regional plain;
  return formatDate(date, u"yyyymmdd", plain) + u"T" + formatDate(date, u"hhnnss", plain);
}

Text hours(int count) { return (count < 10 ? u"+0" : u"+") + toText(count) + u"00"; }

// Signs of the format itself are set off with a backslash; any line end becomes "\n".
Text escaped(TextView text) {
  Text made;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c == u'\r' || c == u'\n') {
      made += u"\\n";
      i += c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
    } else if (c == u'\\' || c == u';' || c == u',') {
      made.append({u'\\', c});
    } else if ((c >= u' ' || c == u'\t') && c != 0x7F) {
      made += c;
    }
  }
  return made;
}

std::size_t octetsOf(TextView character) { return toUtf8(character).size(); }

// No line is longer than 75 octets; what does not fit goes on in the next one behind a blank.
void addLine(Text& calendar, TextView name, TextView value) {
  constexpr std::size_t most = 75;
  const Text line = Text(name) + u":" + Text(value);
  std::size_t octets = 0;
  for (std::size_t i = 0; i < line.size();) {
    const bool pair = line[i] >= 0xD800 && line[i] <= 0xDBFF && i + 1 < line.size();
    const TextView character = TextView(line).substr(i, pair ? 2 : 1);
    if (octets + octetsOf(character) > most) {
      calendar.append(CRLF).append(u" ");
      octets = 1;
    }
    calendar.append(character);
    octets += octetsOf(character);
    i += character.size();
  }
  calendar.append(CRLF);
}

void addText(Text& calendar, TextView name, TextView text) {
  if (!text.empty()) addLine(calendar, name, escaped(text));
}

// The rules hold since the years that the first switches are of.
void addHalf(Text& calendar, TextView name, TextView zoneName, int from, int to, Date first, int month) {
  addLine(calendar, u"BEGIN", name);
  addLine(calendar, u"TZOFFSETFROM", hours(from));
  addLine(calendar, u"TZOFFSETTO", hours(to));
  addLine(calendar, u"TZNAME", zoneName);
  addLine(calendar, u"DTSTART", stamp({first.days + (switchHour + from) * hour}));
  addLine(calendar, u"RRULE", u"FREQ=YEARLY;BYMONTH=" + toText(month) + u";BYDAY=-1SU");
  addLine(calendar, u"END", name);
}

void addZone(Text& calendar, const CalendarZone& zone) {
  constexpr int sinceSummer = 1997, sinceWinter = 1996;
  const int winter = zone.offset, summer = zone.offset + 1;
  addLine(calendar, u"BEGIN", u"VTIMEZONE");
  addLine(calendar, u"TZID", zone.id);
  addHalf(calendar, u"DAYLIGHT", zone.summer, winter, summer, lastSunday(sinceSummer, march), march);
  addHalf(calendar, u"STANDARD", zone.winter, summer, winter, lastSunday(sinceWinter, october), october);
  addLine(calendar, u"END", u"VTIMEZONE");
}

void addAlarm(Text& calendar, const CalendarEvent& event) {
  if (!event.reminderMinutes) return;
  addLine(calendar, u"BEGIN", u"VALARM");
  addLine(calendar, u"ACTION", u"DISPLAY");
  addLine(calendar, u"DESCRIPTION", event.summary.empty() ? Text(u"Visita") : escaped(event.summary));
  addLine(calendar, u"TRIGGER", u"-PT" + toText(*event.reminderMinutes) + u"M");
  addLine(calendar, u"END", u"VALARM");
}

TextView statusName(CalendarStatus status) {
  switch (status) {
    case CalendarStatus::Tentative:
      return u"TENTATIVE";
    case CalendarStatus::Confirmed:
      return u"CONFIRMED";
    case CalendarStatus::Cancelled:
      return u"CANCELLED";
  }
  return u"TENTATIVE";
}

void addEvent(Text& calendar, const CalendarEvent& event, const CalendarZone& zone, Date now) {
  const auto world = [&](Date local) { return stamp(worldTime(zone, local)) + u"Z"; };
  const Text inZone = u";TZID=" + Text(zone.id);
  addLine(calendar, u"BEGIN", u"VEVENT");
  addLine(calendar, u"UID", escaped(event.uid));
  addLine(calendar, u"DTSTAMP", stamp(now) + u"Z");
  if (event.changed) addLine(calendar, u"LAST-MODIFIED", world(*event.changed));
  addLine(calendar, u"DTSTART" + inZone, stamp(event.start));
  addLine(calendar, u"DTEND" + inZone, stamp(event.end));
  addText(calendar, u"SUMMARY", event.summary);
  addText(calendar, u"LOCATION", event.place);
  addText(calendar, u"DESCRIPTION", event.text);
  for (const Text& contact : event.contacts) addText(calendar, u"CONTACT", contact);
  addLine(calendar, u"STATUS", statusName(event.status));
  addAlarm(calendar, event);
  addLine(calendar, u"END", u"VEVENT");
}

}  // namespace

const CalendarZone& calendarZone(TextView id) {
  for (const CalendarZone& zone : zones)
    if (zone.id == id) return zone;
  return zones[0];
}

Date worldTime(const CalendarZone& zone, Date local) {
  const int year = partsOf(local).year;
  const double inWinter = local.days - zone.offset * hour, inSummer = inWinter - hour;
  const double half = hour / 7200;  // a second is the smallest step
  const bool summer = inSummer + half >= lastSunday(year, march).days + switchHour * hour &&
                      inSummer + half < lastSunday(year, october).days + switchHour * hour;
  return {summer ? inSummer : inWinter};
}

Text calendarText(const CalendarEvent& event, const CalendarZone& zone, Date now) {
  Text calendar;
  addLine(calendar, u"BEGIN", u"VCALENDAR");
  addLine(calendar, u"VERSION", u"2.0");
  addLine(calendar, u"PRODID", u"-//Ovalia//Agencia//ES");
  addLine(calendar, u"CALSCALE", u"GREGORIAN");
  addZone(calendar, zone);
  addEvent(calendar, event, zone, now);
  addLine(calendar, u"END", u"VCALENDAR");
  return calendar;
}

}  // namespace ovalia::host
