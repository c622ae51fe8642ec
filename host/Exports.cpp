#include "host/Exports.h"

#include "platform/Platform.h"

namespace ovalia::host {

namespace {

struct NoteLine {
  TextView field, label;
};
constexpr NoteLine noteLines[] = {{u"Asunto", u"Asunto"},         {u"Usuario", u"Autor"},
                                  {u"FechaAlta", u"Fecha"},       {u"TipoAccNota", u"Acceso"},
                                  {u"Categorias", u"Categorías"}, {u"Notas", u"Notas"}};

bool hasDay(const Variant& value) { return !value.isNull() && value.toDate().days > 0; }

Text stamp(Date date) {
  return formatDate(date, u"yyyymmdd", Regional()) + u"T" + formatDate(date, u"hhnnss", Regional());
}

// The format's own marks are set off with a backslash; line ends become "\n".
Text escaped(const Variant& value) {
  Text text = replaceAll(value.text(), u"\\", u"\\\\");
  text = replaceAll(text, CRLF, u"\\n");
  text = replaceAll(text, u"\n", u"\\n");
  text = replaceAll(text, u";", u"\\;");
  return replaceAll(text, u",", u"\\,");
}

// Lines longer than 75 bytes go on in the next one behind a blank.
void addLine(Text& calendar, TextView name, const Text& value) {
  Text line = Text(name) + u":" + value;
  constexpr std::size_t most = 25;  // units; a unit takes at most three bytes
  for (bool first = true; first || !line.empty(); first = false) {
    std::size_t cut = std::min(most, line.size());
    if (cut < line.size() && line[cut] >= 0xDC00 && line[cut] <= 0xDFFF) --cut;
    calendar.append(first ? u"" : u" ").append(line, 0, cut).append(CRLF);
    line.erase(0, cut);
  }
}

}  // namespace

Text noteText(dao::Recordset& rows) {
  Text all;
  for (const NoteLine& line : noteLines)
    if (const Text value = rows.value(line.field).text(); !value.empty())
      all.append(line.label).append(u": ").append(value).append(CRLF);
  return all;
}

Text visitCalendar(dao::Recordset& rows) {
  Text calendar;
  addLine(calendar, u"BEGIN", u"VCALENDAR");
  addLine(calendar, u"VERSION", u"2.0");
  addLine(calendar, u"PRODID", u"-//Agencia//Visitas//ES");
  addLine(calendar, u"BEGIN", u"VEVENT");
  addLine(calendar, u"UID", u"visita-" + rows.value(u"IdAnota").text() + u"@agencia");
  addLine(calendar, u"DTSTAMP", stamp(Platform::current().clock->now()));
  const Variant start = rows.value(u"FechaComienzo"), end = rows.value(u"FechaFin");
  if (hasDay(start)) {
    const Date from = start.toDate();
    const bool ends = hasDay(end) && end.toDate().days > from.days;
    addLine(calendar, u"DTSTART", stamp(from));
    addLine(calendar, u"DTEND", stamp(ends ? end.toDate() : Date{from.days + 1.0 / 24}));
  }
  addLine(calendar, u"SUMMARY", escaped(rows.value(u"Asunto")));
  addLine(calendar, u"LOCATION", escaped(rows.value(u"Donde")));
  addLine(calendar, u"DESCRIPTION", escaped(rows.value(u"Notas")));
  addLine(calendar, u"STATUS", rows.value(u"Anulada").holds() ? u"CANCELLED" : u"CONFIRMED");
  addLine(calendar, u"END", u"VEVENT");
  addLine(calendar, u"END", u"VCALENDAR");
  return calendar;
}

void exportTo(Workplace& workplace, const FileQuestion& question, TextView text) {
  const Text path = workplace.dialogs.saveFile(question);
  if (!path.empty()) Platform::current().files->write(path, text);
}

}  // namespace ovalia::host
