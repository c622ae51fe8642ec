// Calendars for other programs, looked at by a reader of the format that stands on nothing of what writes it.
#include "host/Calendar.h"

#include <gmock/gmock.h>

#include "platform/Regional.h"
#include "tests/host/CalendarReader.h"

namespace ovalia::host {

using testing::ElementsAre;

namespace {

Date at(int year, int month, int day, int hour = 0, int minute = 0) {
  return *dateFrom({year, month, day, hour, minute, 0});
}

CalendarEvent visit() {
  CalendarEvent event;
  event.uid = u"VisitaIP-12.1.1@agencia";
  event.start = at(2026, 3, 9, 10, 20);
  event.end = at(2026, 3, 9, 11, 0);
  event.summary = u"Visita";
  return event;
}

CalendarPiece read(const CalendarEvent& event, Date now = at(2026, 3, 1, 9),
                   TextView zone = u"Europe/Madrid") {
  return readCalendar(toUtf8(calendarText(event, calendarZone(zone), now)));
}

const CalendarPiece& eventIn(const CalendarPiece& calendar) { return calendar.only("VEVENT"); }

}  // namespace

TEST(Calendar, holds_one_event_with_all_that_the_format_asks_for) {
  const CalendarPiece calendar = read(visit());
  EXPECT_EQ(calendar.value("VERSION"), "2.0");
  EXPECT_NE(calendar.value("PRODID"), "");
  const CalendarPiece& event = eventIn(calendar);
  EXPECT_EQ(event.value("UID"), "VisitaIP-12.1.1@agencia");
  EXPECT_EQ(event.value("DTSTAMP"), "20260301T090000Z");
  EXPECT_EQ(event.value("DTSTART"), "20260309T102000");
  EXPECT_EQ(event.value("DTEND"), "20260309T110000");
  EXPECT_EQ(event.parameters("DTSTART"), "TZID=Europe/Madrid");
  EXPECT_EQ(event.parameters("DTEND"), "TZID=Europe/Madrid");
  EXPECT_EQ(event.value("STATUS"), "TENTATIVE");
  EXPECT_EQ(event.count("LOCATION") + event.count("DESCRIPTION") + event.count("CONTACT"), 0u);
  EXPECT_TRUE(event.pieces.empty()) << "no alarm";
}

TEST(Calendar, has_the_rules_of_its_zone) {
  struct Row {
    TextView zone;
    const char *half, *from, *to, *name, *begins, *rule;
  };
  for (const Row& row : {
           Row{u"Europe/Madrid", "DAYLIGHT", "+0100", "+0200", "CEST", "19970330T020000",
               "FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU"},
           Row{u"Europe/Madrid", "STANDARD", "+0200", "+0100", "CET", "19961027T030000",
               "FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU"},
           Row{u"Atlantic/Canary", "DAYLIGHT", "+0000", "+0100", "WEST", "19970330T010000",
               "FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU"},
           Row{u"Atlantic/Canary", "STANDARD", "+0100", "+0000", "WET", "19961027T020000",
               "FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU"},
       }) {
    const CalendarPiece calendar = read(visit(), at(2026, 3, 1), row.zone);
    const CalendarPiece& zone = calendar.only("VTIMEZONE");
    EXPECT_EQ(zone.value("TZID"), toUtf8(row.zone));
    const CalendarPiece& half = zone.only(row.half);
    EXPECT_EQ(half.value("TZOFFSETFROM"), row.from);
    EXPECT_EQ(half.value("TZOFFSETTO"), row.to);
    EXPECT_EQ(half.value("TZNAME"), row.name);
    EXPECT_EQ(half.value("DTSTART"), row.begins);
    EXPECT_EQ(half.value("RRULE"), row.rule);
  }
  EXPECT_EQ(calendarZone(u"America/Lima").id, u"Europe/Madrid");
}

TEST(Calendar, turns_local_moments_into_the_worlds) {
  const auto world = [](Date local, TextView zone = u"Europe/Madrid") {
    return toUtf8(formatDate(worldTime(calendarZone(zone), local), u"dd/mm/yyyy hh:nn", Regional()));
  };
  EXPECT_EQ(world(at(2026, 1, 15, 0, 30)), "14/01/2026 23:30");
  EXPECT_EQ(world(at(2026, 7, 15, 0, 30)), "14/07/2026 22:30");
  EXPECT_EQ(world(at(2026, 7, 15, 0, 30), u"Atlantic/Canary"), "14/07/2026 23:30");
  // The nights of 2026 and 2024 in which clocks are set.
  EXPECT_EQ(world(at(2026, 3, 29, 1, 59)), "29/03/2026 00:59");
  EXPECT_EQ(world(at(2026, 3, 29, 3, 0)), "29/03/2026 01:00");
  EXPECT_EQ(world(at(2026, 10, 25, 1, 59)), "24/10/2026 23:59");
  EXPECT_EQ(world(at(2026, 10, 25, 2, 30)), "25/10/2026 00:30");
  EXPECT_EQ(world(at(2026, 10, 25, 3, 0)), "25/10/2026 02:00");
  EXPECT_EQ(world(at(2024, 3, 31, 3, 0)), "31/03/2024 01:00");
  EXPECT_EQ(world(at(2024, 10, 27, 3, 0)), "27/10/2024 02:00");
}

TEST(Calendar, keeps_texts_to_the_letter) {
  CalendarEvent event = visit();
  event.summary = u"Firma; arras, y llaves \\ BEGIN:VEVENT";
  event.place = u"C/ Añil, 3, 2º \"B\"";
  event.text = u"uno\r\ndos\ntres\rcuatro\tcinco\r\n\r\nEND:VEVENT";
  event.contacts = {u"Visitante: Ibáñez, Fermín, 600 000 000", u"Comercial: Óscar"};
  const CalendarPiece calendar = read(event);
  const CalendarPiece& read = eventIn(calendar);
  EXPECT_EQ(read.text("SUMMARY"), "Firma; arras, y llaves \\ BEGIN:VEVENT");
  EXPECT_EQ(read.text("LOCATION"), "C/ Añil, 3, 2º \"B\"");
  EXPECT_EQ(read.text("DESCRIPTION"), "uno\ndos\ntres\ncuatro\tcinco\n\nEND:VEVENT");
  EXPECT_THAT(read.texts("CONTACT"),
              ElementsAre("Visitante: Ibáñez, Fermín, 600 000 000", "Comercial: Óscar"));
}

TEST(Calendar, leaves_out_what_no_calendar_may_hold) {
  CalendarEvent event = visit();
  event.summary = Text(u"a\0b\u0007c\u007Fd", 7);
  EXPECT_EQ(eventIn(read(event)).text("SUMMARY"), "abcd");
  event.summary = Text(1, char16_t(0xD83C));
  EXPECT_EQ(eventIn(read(event)).text("SUMMARY"), "\xEF\xBF\xBD");
}

TEST(Calendar, folds_long_lines_between_characters) {
  CalendarEvent event = visit();
  for (const Text& text : {Text(1000, u'a'), Text(400, u'ñ'), Text(300, u'€')}) {
    for (int shift = 0; shift < 5; ++shift) {
      event.text = Text(std::size_t(shift), u'x') + text;
      EXPECT_EQ(eventIn(read(event)).text("DESCRIPTION"), toUtf8(event.text));
    }
  }
  event.text.clear();
  for (int i = 0; i < 200; ++i) event.text += u"🏠,";
  EXPECT_EQ(eventIn(read(event)).text("DESCRIPTION"), toUtf8(event.text));
}

TEST(Calendar, says_whether_it_takes_place) {
  CalendarEvent event = visit();
  event.status = CalendarStatus::Confirmed;
  EXPECT_EQ(eventIn(read(event)).value("STATUS"), "CONFIRMED");
  event.status = CalendarStatus::Cancelled;
  EXPECT_EQ(eventIn(read(event)).value("STATUS"), "CANCELLED");
}

TEST(Calendar, reminds_so_long_before) {
  CalendarEvent event = visit();
  event.reminderMinutes = 2880;
  const CalendarPiece calendar = read(event);
  const CalendarPiece& alarm = eventIn(calendar).only("VALARM");
  EXPECT_EQ(alarm.value("ACTION"), "DISPLAY");
  EXPECT_EQ(alarm.value("TRIGGER"), "-PT2880M");
  EXPECT_EQ(alarm.text("DESCRIPTION"), "Visita");
  event.summary = u"";
  EXPECT_NE(eventIn(read(event)).only("VALARM").text("DESCRIPTION"), "") << "an alarm must have one";
  event.reminderMinutes = 0;
  EXPECT_EQ(eventIn(read(event)).only("VALARM").value("TRIGGER"), "-PT0M");
}

TEST(Calendar, says_when_it_was_written_last) {
  CalendarEvent event = visit();
  EXPECT_EQ(eventIn(read(event)).count("LAST-MODIFIED"), 0u);
  event.changed = at(2026, 7, 1, 12);
  EXPECT_EQ(eventIn(read(event)).value("LAST-MODIFIED"), "20260701T100000Z");
}

}  // namespace ovalia::host
