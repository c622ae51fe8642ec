#include "host/MailImport.h"

#include <QTemporaryDir>
#include <QUuid>

#include "attachments/StoredNames.h"
#include "desktop/MailReading.h"
#include "desktop/QtText.h"
#include "platform/Platform.h"

namespace ovalia::host {

namespace {

constexpr TextView title = u"Importar correo";

// What is told at the end, a line each.
struct Import {
  std::int32_t lastNote = 0;
  Text problems;

  void problem(TextView file, TextView what) {
    problems.append(u"\n").append(file).append(u": ").append(what);
  }
};

// As much of a text as its column takes.
Text fitting(TextView tableName, TextView column, TextView text) {
  const Table& design = table(tableName);
  const auto most = static_cast<std::size_t>(design.columns[design.position(column)].size);
  if (text.size() <= most) return Text(text);
  const char16_t last = text[most - 1];
  return Text(text.substr(0, last >= 0xD800 && last <= 0xDBFF ? most - 1 : most));
}

Text noteOf(const desktop::ReadMail& mail) {
  Text text;
  const auto line = [&](TextView label, TextView value) {
    if (!value.empty()) text.append(label).append(value).append(CRLF);
  };
  line(u"De: ", mail.from);
  line(u"Para: ", mail.to);
  line(u"Copia: ", mail.copies);
  if (mail.date) line(u"Fecha: ", Variant(*mail.date).text());
  if (!text.empty() && !mail.text.empty()) text += CRLF;
  return text + mail.text;
}

// The key of the user who works here, as it stands in a statement; of one who is there no more, none.
Text idOfUser(const Agency& agency) {
  const auto rows = agency.database->OpenRecordset(
      u"SELECT IdUsuario FROM Usuario WHERE Nombre = " + literal(agency.user), dao::dbOpenSnapshot);
  return rows->isEOF() ? Text(u"NULL") : toText(rows->value(u"IdUsuario").toLong());
}

// Makes the note's row with what no list of columns decides, and gives its key. The row is found again by a
// subject that no other has, for others make notes too.
std::int32_t newRow(const Agency& agency, const AnnotationTable& notes, std::int32_t parent) {
  const Text mark = desktop::fromQt(QUuid::createUuid().toString(QUuid::WithoutBraces));
  dao::Database& database = *agency.database;
  database.Execute(join(u"INSERT INTO ", notes.name, u" (", notes.parentColumn,
                        u", IdAgencia, NAgencia, IdUsuario, Asunto) VALUES (", parent, u", ", agency.id,
                        u", ", agency.number, u", ", idOfUser(agency), u", ", literal(mark), u")"));
  const auto row = database.OpenRecordset(
      join(u"SELECT ", kindKey(notes.kind), u" AS N FROM ", notes.name, u" WHERE Asunto = ", literal(mark)),
      dao::dbOpenSnapshot);
  return row->value(u"N").toLong();
}

void fillRow(dao::Recordset& row, const AnnotationTable& notes, const desktop::ReadMail& mail) {
  const Date now = Platform::current().clock->now();
  row.Edit();
  row.setValue(u"Asunto", fitting(notes.name, u"Asunto", mail.subject));
  row.setValue(u"Notas", noteOf(mail));
  row.setValue(u"FechaAlta", mail.date.value_or(now));
  row.setValue(u"FechaActualizacion", now);
  row.Update();
}

// Through the component, on the current row of its list: a copy in the tree of documents, and its row.
bool attach(CNota& nota, std::int32_t record, const desktop::ReadAttachment& document) {
  const Text folder = nota.CreaPathDoc(record);
  if (folder.empty()) return false;
  Text extension = lastFour(document.name);
  const Text stored = nota.CreaNombreDoc(record, extension);
  if (stored.empty()) return false;
  const Text target = logicPath(nota.AppDirUser) + u"\\" + folder + stored;
  Platform::current().files->copy(document.path, target, false);
  return nota.AniadirArch(document.path, stored);
}

void attachAll(CNota& nota, const desktop::ReadMail& mail, const Text& file, Import& import) {
  const std::int32_t record = nota.crs->value(u"Id").toLong();
  for (const desktop::ReadAttachment& document : mail.attachments) {
    bool attached = false;
    try {
      attached = attach(nota, record, document);
    } catch (const Failure&) {
      attached = false;
    }
    if (!attached) import.problem(file, u"el documento «" + document.name + u"» no se ha podido adjuntar.");
  }
}

void removeRow(const Agency& agency, const AnnotationTable& notes, std::int32_t note) {
  agency.database->Execute(join(u"DELETE FROM ", notes.name, u" WHERE ", kindKey(notes.kind), u" = ", note));
}

// On a list and an object of its own: a card may be open on a row of the other. A row that could not be
// filled does not stay.
void makeNote(Workplace& workplace, const AnnotationList& list, const desktop::ReadMail& mail,
              const Text& file, Import& import) {
  const std::int32_t note = newRow(workplace.agency, list.annotations(), list.parent());
  AnnotationList own(list.design(), workplace);
  try {
    own.open(list.parent());
    if (!own.goTo(note)) throw Failure(dao::failure::noCurrentRecord);
    fillRow(*own.recordset(), list.annotations(), mail);
  } catch (...) {
    removeRow(workplace.agency, list.annotations(), note);
    throw;
  }
  import.lastNote = note;
  attachAll(own.nota(), mail, file, import);
}

void importFile(Workplace& workplace, const AnnotationList& list, const Text& path, Import& import) {
  const Text file = path.substr(path.rfind(u'\\') + 1);
  try {
    QTemporaryDir folder;
    if (!folder.isValid()) throw Failure(failure::pathFileAccess);
    const auto mail = desktop::readMail(path, logicPath(desktop::fromQt(folder.path())));
    if (!mail) return import.problem(file, u"no es un correo.");
    makeNote(workplace, list, *mail, file, import);
  } catch (...) {
    import.problem(file, u"no se ha podido importar. " + currentFailure().description());
  }
}

}  // namespace

bool takesMails(const AnnotationList& list) {
  return list.annotations().kind == Kind::Nota && list.mayCreate();
}

std::int32_t importMails(Workplace& workplace, const AnnotationList& list) {
  const auto files = workplace.dialogs.openFiles(
      {u"Importar correo", u"Correos (*.eml)|*.eml|Todos los ficheros (*.*)|*.*", {}, {}, true});
  Import import;
  for (const Text& file : files) importFile(workplace, list, file, import);
  if (!import.problems.empty())
    workplace.dialogs.tell(title, u"No se ha podido importar todo:" + import.problems);
  return import.lastNote;
}

}  // namespace ovalia::host
