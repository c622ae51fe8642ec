#include "host/Exports.h"

#include <QDateTime>
#include <QSaveFile>
#include <QTimeZone>

#include "desktop/DiskFile.h"
#include "desktop/QtText.h"
#include "host/Queries.h"
#include "host/VisitExport.h"
#include "platform/Platform.h"
#include "platform/Regional.h"

namespace ovalia::host {

namespace {

constexpr TextView title = u"Exportar";

struct NoteLine {
  TextView field, label;
};
constexpr NoteLine noteLines[] = {{u"Asunto", u"Asunto"},      {u"Usuario", u"Autor"},
                                  {u"FechaAlta", u"Fecha"},    {u"FechaActualizacion", u"Actualizada"},
                                  {u"TipoAccNota", u"Acceso"}, {u"Categorias", u"Categorías"}};

void addLine(Text& all, TextView label, TextView value) {
  if (!value.empty()) all.append(label).append(u": ").append(value).append(CRLF);
}

// "09/03/2026 10:20 para Lucía Ferrándiz"; "" where nobody is to be reminded.
Text reminder(dao::Recordset& note) {
  if (!note.value(u"Aviso").holds()) return {};
  const Text when = note.value(u"FechaAviso").text(), whom = note.value(u"UsuarioAviso").text();
  if (whom.empty()) return when.empty() ? Text(u"Sí") : when;
  return when + (when.empty() ? u"Para " : u" para ") + whom;
}

Text clientOf(dao::Database& database, const Variant& key) {
  if (key.isNull()) return {};
  const auto client = database.OpenRecordset(
      u"SELECT Alias FROM Cliente WHERE IdCliente = " + toText(key.toLong()), dao::dbOpenSnapshot);
  return client->isEOF() ? Text() : client->value(u"Alias").text();
}

Text documentsOf(dao::Database& database, const AnnotationTable& notes, std::int32_t note) {
  const auto rows = database.OpenRecordset(u"SELECT NombreOrg FROM " + Text(notes.attachments) +
                                               u" WHERE IdNota = " + toText(note) + u" ORDER BY IdDocu",
                                           dao::dbOpenSnapshot);
  Text names;
  for (; !rows->isEOF(); rows->MoveNext()) names += u"  " + rows->value(u"NombreOrg").text() + Text(CRLF);
  return names;
}

// This computer's clock, which need not go by the agency's zone, in the world's time.
Date worldNow() {
  const DateParts now = partsOf(Platform::current().clock->now());
  const QDateTime world =
      QDateTime(QDate(now.year, now.month, now.day), QTime(now.hour, now.minute, now.second), Qt::LocalTime)
          .toUTC();
  return *dateFrom({world.date().year(), world.date().month(), world.date().day(), world.time().hour(),
                    world.time().minute(), world.time().second()});
}

// Runs an export; a row that is gone, or anything else that the database does not give, is told.
template <class Work>
void telling(Workplace& workplace, Work&& work) {
  try {
    work();
  } catch (const Failure& failure) {
    const bool gone = failure.number() == dao::failure::noCurrentRecord;
    workplace.dialogs.tell(title, gone ? Text(u"La ficha ya no existe: otro usuario la ha borrado.")
                                       : u"No se ha podido exportar. " + failure.description());
  }
}

}  // namespace

Text noteText(dao::Database& database, const AnnotationTable& notes, std::int32_t note) {
  const auto row = database.OpenRecordset(rowQuery(notes, note), dao::dbOpenSnapshot);
  Text all;
  for (const NoteLine& line : noteLines) addLine(all, line.label, row->value(line.field).text());
  addLine(all, u"Cliente", clientOf(database, row->value(u"IdCliente")));
  addLine(all, u"Aviso", reminder(*row));
  if (const Text text = row->value(u"Notas").text(); !text.empty())
    all.append(CRLF).append(text).append(CRLF);
  if (const Text names = documentsOf(database, notes, note); !names.empty())
    all.append(CRLF).append(u"Documentos:").append(CRLF).append(names);
  return all;
}

void exportNote(Workplace& workplace, const AnnotationTable& notes, std::int32_t note) {
  telling(workplace, [&] {
    exportTo(workplace, {u"Exportar nota", u"Texto (*.txt)|*.txt", {}, u"nota.txt"},
             noteText(*workplace.agency.database, notes, note));
  });
}

void exportVisit(Workplace& workplace, const AnnotationTable& visits, std::int32_t visit) {
  telling(workplace, [&] {
    const Agency& agency = workplace.agency;
    const auto event = visitEvent(*agency.database, visits, visit, agency.id, agency.number);
    if (!event)
      return workplace.dialogs.tell(
          title, u"La visita no tiene fecha de comienzo: ponga una para exportarla a un calendario.");
    const CalendarZone& zone =
        calendarZone(desktop::fromQt(QString::fromLatin1(QTimeZone::systemTimeZoneId())));
    exportTo(workplace, {u"Exportar visita", u"Calendario (*.ics)|*.ics", {}, u"visita.ics"},
             calendarText(*event, zone, worldNow()));
  });
}

void exportTo(Workplace& workplace, const FileQuestion& question, TextView text) {
  const Text path = workplace.dialogs.saveFile(question);
  if (path.empty()) return;
  QSaveFile file(desktop::diskFile(path));
  const std::string bytes = toUtf8(text);
  const auto size = static_cast<qint64>(bytes.size());
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), size) != size || !file.commit())
    workplace.dialogs.tell(question.title, u"No se ha podido escribir el fichero " + nativePath(path) +
                                               u".\nElija otra carpeta o compruebe que hay sitio.");
}

}  // namespace ovalia::host
