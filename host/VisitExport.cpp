#include "host/VisitExport.h"

#include <cmath>

#include "host/Queries.h"

namespace ovalia::host {

namespace {

constexpr double hour = 1.0 / 24;

bool hasDay(const Variant& value) { return !value.isNull() && value.toDate().days >= 1; }

// Who takes part, in which role, from which table.
struct PersonRow {
  TextView column, role;
  TextView table, key, name;
  TextView telephone, mail;  // "" where the table has none
};
constexpr PersonRow people[] = {
    {u"IdCliente", u"Visitante", u"Cliente", u"IdCliente", u"Alias", u"Tfno1", u"Correo"},
    {u"IdComercial", u"Comercial", u"Usuario", u"IdUsuario", u"Nombre", u"Tfno", u"Correo"},
    {u"IdComercial2", u"Comercial", u"Usuario", u"IdUsuario", u"Nombre", u"Tfno", u"Correo"},
    {u"IdOtraAgencia", u"Otra agencia", u"Agencia", u"IdAgencia", u"Alias", u"Tfno", u""},
};

// "Comercial: Óscar Güell, 600 000 000, oscar@agencia.es"; "" for nobody.
Text contact(dao::Database& database, const PersonRow& row, const Variant& key) {
  if (key.isNull()) return {};
  const auto found = database.OpenRecordset(
      u"SELECT * FROM " + Text(row.table) + u" WHERE " + Text(row.key) + u" = " + toText(key.toLong()),
      dao::dbOpenSnapshot);
  if (found->isEOF()) return {};
  Text made = Text(row.role) + u": " + found->value(row.name).text();
  for (TextView column : {row.telephone, row.mail})
    if (const Text value = column.empty() ? Text() : found->value(column).text(); !value.empty())
      made += u", " + value;
  return made;
}

std::vector<Text> contactsOf(dao::Database& database, dao::Recordset& visit) {
  std::vector<Text> contacts;
  for (const PersonRow& row : people)
    if (Text made = contact(database, row, visit.value(row.column)); !made.empty()) contacts.push_back(made);
  return contacts;
}

CalendarStatus statusOf(dao::Recordset& visit) {
  if (visit.value(u"Anulada").holds()) return CalendarStatus::Cancelled;
  const bool sure = visit.value(u"Confirmada").holds() || visit.value(u"Realizada").holds();
  return sure ? CalendarStatus::Confirmed : CalendarStatus::Tentative;
}

std::optional<int> reminderOf(dao::Recordset& visit) {
  const Variant ahead = visit.value(u"TiempoAviso");
  if (!visit.value(u"Aviso").holds()) return {};
  // A time ahead counts from day zero or, in old rows, from the same day of 1999.
  constexpr double minutesADay = 24 * 60, aCentury = 36524;
  if (ahead.isNull()) return 0;
  return static_cast<int>(std::lround(std::fmod(std::abs(ahead.toDate().days), aCentury) * minutesADay));
}

Text textOf(dao::Recordset& visit, const std::vector<Text>& contacts) {
  Text text = visit.value(u"Notas").text();
  if (!text.empty() && !contacts.empty()) text += CRLF;
  for (const Text& one : contacts) text.append(text.empty() ? u"" : CRLF).append(one);
  if (visit.value(u"Realizada").holds()) text.append(text.empty() ? u"" : CRLF).append(u"Realizada: Sí");
  return text;
}

Date endOf(dao::Recordset& visit, Date start) {
  const Variant end = visit.value(u"FechaFin");
  const bool behind = hasDay(end) && end.toDate().days > start.days;
  return behind ? end.toDate() : Date{start.days + hour};
}

}  // namespace

std::optional<CalendarEvent> visitEvent(dao::Database& database, const AnnotationTable& visits,
                                        std::int32_t key, std::int32_t agency, std::int32_t number) {
  const auto visit = database.OpenRecordset(rowQuery(visits, key), dao::dbOpenSnapshot);
  const Variant start = visit->value(u"FechaComienzo"), changed = visit->value(u"FechaActualizacion");
  if (!hasDay(start)) return {};
  CalendarEvent event;
  event.uid = Text(visits.name) + u"-" + toText(key) + u"." + toText(agency) + u"." + toText(number) +
              u"@agencia.ovalia";
  event.start = start.toDate();
  event.end = endOf(*visit, event.start);
  if (hasDay(changed)) event.changed = changed.toDate();
  event.summary = visit->value(u"Asunto").text();
  if (trimBlanks(event.summary).empty()) event.summary = u"Visita";
  event.place = visit->value(u"Donde").text();
  event.contacts = contactsOf(database, *visit);
  event.text = textOf(*visit, event.contacts);
  event.status = statusOf(*visit);
  event.reminderMinutes = reminderOf(*visit);
  return event;
}

}  // namespace ovalia::host
