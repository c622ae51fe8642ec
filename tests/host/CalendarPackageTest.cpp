// Exported visits as another reader has them: the calendar package of Python, which Debian has.
#include <gmock/gmock.h>

#include "host/Exports.h"
#include "routines/SqlText.h"
#include "system/RunProgram.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

namespace {

using namespace std::chrono_literals;

// Says of the calendar in its first argument, into the file of its second, what it understood: a line a fact.
// The zone that the calendar brings is compared with the one of the system, hour for hour.
constexpr const char* reader = R"(
import sys
from datetime import datetime, timedelta, timezone
from zoneinfo import ZoneInfo
from icalendar import Calendar

calendar = Calendar.from_ical(open(sys.argv[1], 'rb').read())
out = open(sys.argv[2], 'w', encoding='utf-8', newline='\n')

def say(name, value):
    print(name + ': ' + str(value).replace('\n', '|'), file=out)

def listed(value):
    return value if isinstance(value, list) else [value]

event, = calendar.walk('VEVENT')
zone, = calendar.walk('VTIMEZONE')
say('errors', [piece.errors for piece in calendar.walk() if piece.errors])
say('start', event.decoded('DTSTART').astimezone(timezone.utc))
say('end', event.decoded('DTEND').astimezone(timezone.utc))
say('stamp', event.decoded('DTSTAMP'))
say('changed', event.decoded('LAST-MODIFIED'))
for name in 'UID', 'SUMMARY', 'LOCATION', 'DESCRIPTION', 'STATUS':
    if name in event: say(name, event[name])
for contact in listed(event['CONTACT']):
    say('CONTACT', contact)
alarm, = event.walk('VALARM')
say('alarm', alarm.decoded('TRIGGER'))

brought, system = zone.to_tz(), ZoneInfo(str(zone['TZID']))
moment, apart = datetime(1998, 1, 1), 0
while moment.year < 2031:
    here = brought.fromutc(moment.replace(tzinfo=brought) if not hasattr(brought, 'localize') else moment)
    there = moment.replace(tzinfo=timezone.utc).astimezone(system)
    apart += here.replace(tzinfo=None) != there.replace(tzinfo=None)
    moment += timedelta(hours=1)
say('hours apart', apart)
)";

class CalendarPackage : public HostTest {
 protected:
  CalendarPackage() {
    here.clock.time = {2026, 3, 9, 10, 20, 30};
    qputenv("TZ", "Europe/Madrid");
  }
  ~CalendarPackage() override { qunsetenv("TZ"); }

  std::string understood(std::int32_t visit) {
    dialogs.files = {{folder.logic(u"visita.ics")}};
    exportVisit(workplace, annotationTable(u"VisitaIP"), visit);
    const std::string facts = (folder.path() / "leido.txt").string();
    EXPECT_EQ(system::runProgram(
                  {"/usr/bin/python3", "-c", reader, (folder.path() / "visita.ics").string(), facts}, 120s),
              system::ProgramEnd::done)
        << "tools/packages installs python3-icalendar\n"
        << folder.content("visita.ics");
    return folder.content("leido.txt");
  }
};

TEST_F(CalendarPackage, reads_of_a_visit_all_that_it_says) {
  database().Execute(
      u"INSERT INTO Cliente (Alias, Tfno1, Correo) VALUES ('Ibáñez; Fermín', '600 1', 'f@cliente.es')");
  database().Execute(u"UPDATE Usuario SET Tfno = '600 2', Correo = NULL WHERE IdUsuario = 1");
  const Text notes = u"Con llaves, «ático»; sótano \\ 🏠\r\n\r\n" + Text(200, u'ñ');
  database().Execute(
      u"INSERT INTO VisitaIP (IdInm, FechaComienzo, FechaFin, Asunto, Donde, Notas, IdCliente, IdComercial, "
      u"Aviso, TiempoAviso, Confirmada, FechaActualizacion) VALUES (1, #03/29/26 10:00:00#, #03/29/26 "
      u"11:30:00#, 'Segunda visita, con el notario', 'C/ Mayor, 3', " +
      ComillaSQL(notes) +
      u", (SELECT Max(IdCliente) FROM Cliente), 1, 1, #12/30/1899 02:30:00#, 1, #03/01/26 09:00:00#)");
  const std::int32_t visit = one(u"SELECT Max(IdVisita) FROM VisitaIP").toLong();
  const std::string people = "Visitante: Ibáñez; Fermín, 600 1, f@cliente.es|Comercial: Administrador, 600 2";
  EXPECT_EQ(understood(visit),
            "errors: []\n"
            "start: 2026-03-29 08:00:00+00:00\n"
            "end: 2026-03-29 09:30:00+00:00\n"
            "stamp: 2026-03-09 09:20:30+00:00\n"
            "changed: 2026-03-01 08:00:00+00:00\n"
            "UID: VisitaIP-" +
                std::to_string(visit) +
                ".1.1@agencia.ovalia\n"
                "SUMMARY: Segunda visita, con el notario\n"
                "LOCATION: C/ Mayor, 3\n"
                "DESCRIPTION: " +
                toUtf8(replaceAll(notes, u"\r\n", u"|")) + "||" + people +
                "\n"
                "STATUS: CONFIRMED\n"
                "CONTACT: Visitante: Ibáñez; Fermín, 600 1, f@cliente.es\n"
                "CONTACT: Comercial: Administrador, 600 2\n"
                "alarm: -1 day, 21:30:00\n"
                "hours apart: 0\n");
}

TEST_F(CalendarPackage, knows_the_zone_of_the_islands) {
  qputenv("TZ", "Atlantic/Canary");
  database().Execute(
      u"INSERT INTO VisitaIP (IdInm, FechaComienzo, Asunto, IdComercial, Aviso, FechaActualizacion) VALUES "
      u"(1, "
      u"#07/09/26 10:00:00#, 'Visita', 1, 1, #03/01/26#)");
  const std::string facts = understood(one(u"SELECT Max(IdVisita) FROM VisitaIP").toLong());
  EXPECT_THAT(facts, testing::HasSubstr("start: 2026-07-09 09:00:00+00:00\n"));
  EXPECT_THAT(facts, testing::HasSubstr("hours apart: 0\n"));
}

}  // namespace

}  // namespace ovalia::host
